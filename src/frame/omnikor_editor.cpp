// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/omnikor_editor.h"

#include "base/text.h"
#include "base/version.h"
#include "controls/hourglass.h"
#include "controls/page.h"
#include "desktop/qt_text.h"
#include "desktop/translate_control.h"
#include "frame/rules/routing_table.h"
#include "frame/uce_edit_param.h"

#include <QKeyEvent>
#include <QLoggingCategory>
#include <QShortcut>
#include <QTabBar>
#include <QVBoxLayout>

#include <stdexcept>

namespace kelmar {

using desktop::qs;
using desktop::u8;
using frame::PageRow;

namespace {

constexpr char controlsKey[] = "MAIN/CONTROLS";

// The steps of the start are told when QT_LOGGING_RULES holds "kelmar.start.debug=true".
Q_LOGGING_CATEGORY(startSteps, "kelmar.start", QtWarningMsg)

int tabOf(const QTabBar& tabs, std::string_view key) {
  for (int i = 0; i < tabs.count(); ++i)
    if (u8(tabs.tabData(i).toString()) == key) return i;
  return -1;
}

UceSelector::Machine selectorMachine(const omnikorEditor::Machine& machine) {
  return {machine.person, machine.settings, machine.fetch, machine.clock, machine.site};
}

} // namespace

omnikorEditor::omnikorEditor(Machine machine, const PageMakers& pages, QWidget* parent)
    : QWidget(parent), machine_(machine), state_(*this) {
  setObjectName(QStringLiteral("ctlOmnikor"));
  setProperty(desktop::ownTextsProperty, true);

  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  TabStripPrincipal = new QTabBar(this);
  TabStripPrincipal->setObjectName(QStringLiteral("TabStripPrincipal"));
  TabStripPrincipal->setDocumentMode(true);
  TabStripPrincipal->setExpanding(false);
  TabStripPrincipal->setDrawBase(true);
  rows->addWidget(TabStripPrincipal);

  selector_ = new UceSelector(selectorMachine(machine_), this);
  selector_->setObjectName(QStringLiteral("UceSelector1"));
  selector_->setProperty(desktop::ownTextsProperty, true);
  rows->addWidget(selector_, 1);
  addTab(*frame::rowOfTab("database"));
  listenToSelector();

  for (const auto& [key, make] : pages) {
    const PageRow* row = frame::rowOfTab(key);
    if (!row || row->kind == frame::PageKind::Selector || row->kind == frame::PageKind::Check)
      throw std::invalid_argument("there is no page for the tab " + key);
  }
  for (const PageRow& row : frame::pageTable()) {
    const auto maker = pages.find(std::string(row.key));
    if (maker == pages.end()) continue;
    Page* made = maker->second(this);
    made->setObjectName(qs(row.page));
    made->setProperty(desktop::ownTextsProperty, true);
    made->hide();
    rows->addWidget(made, 1);
    addTab(row);
    pages_.push_back({&row, made});
    listenTo(row, *made);
  }
  connect(TabStripPrincipal, &QTabBar::currentChanged, this, [this] { tabClicked(); });
  new QShortcut(Qt::CTRL | Qt::Key_PageDown, this, [this] { turnPage(1); });
  new QShortcut(Qt::CTRL | Qt::Key_PageUp, this, [this] { turnPage(-1); });

  setLang("en");
  setXmlStyleSheet("ZEMECUPreview.xsl");
  setXmlSchemaTarget(ecuSchemaUri);
  setXmlSchemaScreen(screenSchemaUri);
  setBaseUrl(std::string(defaultIntranetServer) + "/Omnikor");
  state_.SetSaveNeed(false);
}

omnikorEditor::~omnikorEditor() {
  state_.SetSaveNeed(true);
  database_.reset();
  // The pages speak through the language service until they are gone.
  for (const Shown& shown : pages_)
    delete shown.page;
  pages_.clear();
  delete selector_;
  if (texts_) language::setGlobal(nullptr);
}

void omnikorEditor::turnPage(int step) {
  if (!TabStripPrincipal->isEnabled()) return;
  const int tab = TabStripPrincipal->currentIndex() + step;
  if (tab >= 0 && tab < TabStripPrincipal->count()) TabStripPrincipal->setCurrentIndex(tab);
}

const std::string& omnikorEditor::BaseUrl() const {
  return selector_->BaseUrl;
}
void omnikorEditor::setBaseUrl(const std::string& address) {
  selector_->BaseUrl = address;
}
const std::string& omnikorEditor::xmlStyleSheet() const {
  return selector_->xmlStyleSheet;
}
void omnikorEditor::setXmlStyleSheet(const std::string& name) {
  selector_->xmlStyleSheet = name;
}
const std::string& omnikorEditor::XmlSchemaTarget() const {
  return selector_->XmlSchemaTarget;
}
void omnikorEditor::setXmlSchemaTarget(const std::string& uri) {
  selector_->XmlSchemaTarget = uri;
}
const std::string& omnikorEditor::XmlSchemaScreen() const {
  return selector_->XmlSchemaScreen;
}
void omnikorEditor::setXmlSchemaScreen(const std::string& uri) {
  selector_->XmlSchemaScreen = uri;
}
const std::string& omnikorEditor::SiteKey() const {
  return selector_->SiteKey;
}
void omnikorEditor::setSiteKey(const std::string& key) {
  selector_->SiteKey = key;
}
const std::string& omnikorEditor::RemoteDataServer() const {
  return selector_->RemoteDataServer;
}
void omnikorEditor::setRemoteDataServer(const std::string& server) {
  selector_->RemoteDataServer = server;
}

void omnikorEditor::setLang(const std::string& code) {
  lang_ = trimBlanks(code);
  if (texts_) texts_->language = lang_;
  if (database_) database_->lang = lang_;
  for (const std::string_view name : frame::languageOrder()) {
    const PageRow& row = *frame::rowOfPage(name);
    if (row.kind == frame::PageKind::Selector)
      selector_->setLang(lang_);
    else if (Page* built = page(row.key))
      built->setLang(lang_);
  }
  translateControls();
  state_.showAgain();
}

std::string omnikorEditor::GetVersion() {
  return applicationVersion;
}

void omnikorEditor::InitParameters(const std::string& basePath,
                                   const std::string& parametersFileName) {
  basePath_ = basePath;
  qCDebug(startSteps) << "InitParameters Start";
  qCDebug(startSteps) << "initLanguage";
  texts_ = std::make_unique<CMultiLangEx>(machine_.site, machine_.fetch);
  texts_->initLanguage(basePath, lang_, "lang", "OmnikorKelmarControl.xml");
  language::setGlobal(texts_.get());
  qCDebug(startSteps) << "UceSelector1.InitParameters";
  selector_->InitParameters(basePath, parametersFileName);
  for (const std::string_view name : frame::initOrder())
    if (Page* built = page(frame::rowOfPage(name)->key)) built->InitControl();
  if (Page* parameters = page("UCEparam"))
    parameters->writeProperty("databaseDescription", selector_->selectionLabel());
  ShowPage(0);
  TabStripPrincipal->setEnabled(false);
  selectTab("database");
  qCDebug(startSteps) << "TranslateControl";
  translateControls();
  qCDebug(startSteps) << "InitParameters done";
}

Page* omnikorEditor::page(std::string_view tab) const {
  for (const Shown& shown : pages_)
    if (shown.row->key == tab) return shown.page;
  return nullptr;
}

void omnikorEditor::addTab(const PageRow& row) {
  const int index = TabStripPrincipal->addTab(qs(row.caption));
  TabStripPrincipal->setTabData(index, qs(row.key));
  TabStripPrincipal->setTabToolTip(index, qs(row.toolTip));
}

void omnikorEditor::listenToSelector() {
  const PageRow& row = *frame::rowOfTab("database");
  connect(selector_, &UceSelector::help, this, &omnikorEditor::help);
  connect(selector_, &UceSelector::checkdatabase, this, [this] {
    emit checkdatabase(selector_->fileName().empty() ? selector_->url() : selector_->fileName());
  });
  connect(selector_, &UceSelector::OnChange, this, [this, &row] { state_.OnChange(row); });
  connect(selector_, &UceSelector::OnSave, this, [this, &row] { state_.OnSave(row, true); });
  connect(selector_, &UceSelector::OnCancel, this, [this, &row] { state_.OnCancel(row); });
  connect(selector_, &UceSelector::OnNewECU, this, [this] {
    TabStripPrincipal->setEnabled(false);
    state_.SetSaveNeed(false); // what the ECU that goes had to be saved is saved
  });
  connect(selector_, &UceSelector::UceSelected, this, &omnikorEditor::selected);
  connect(selector_, &UceSelector::CheckIfSaveNeeded, this,
          [this](bool& mayGoOn) { mayGoOn = state_.ConfirmLeavePage(currentPage_, true); });
  connect(selector_, &UceSelector::DatabaseChanged, this,
          [this](const QString&, const QString& newText) {
            if (Page* parameters = page("UCEparam"))
              parameters->writeProperty("databaseDescription", u8(newText));
          });
}

void omnikorEditor::listenTo(const PageRow& row, Page& source) {
  connect(&source, &Page::OnChange, this, [this, &row] { state_.OnChange(row); });
  connect(&source, &Page::OnSave, this, [this, &row](bool toFile) { state_.OnSave(row, toFile); });
  connect(&source, &Page::OnCancel, this, [this, &row] { state_.OnCancel(row); });
  connect(&source, &Page::help, this, &omnikorEditor::help);

  if (auto* parameters = qobject_cast<UceEditParam*>(&source))
    connect(parameters, &UceEditParam::OnIdentification, this, &omnikorEditor::identify);

  using Text = const std::string&;
  const std::string_view name = row.page;
  connect(&source, &Page::OnDataSelect, this,
          [this, name](Text item) { goTo(name, "OnDataSelect", {item}); });
  connect(&source, &Page::OnRequestSelect, this, [this, name](Text request, Text item) {
    goTo(name, "OnRequestSelect", {request, item});
  });
  connect(&source, &Page::OnDeviceSelect, this, [this, name](Text device, Text item) {
    goTo(name, "OnDeviceSelect", {device, item});
  });
  connect(&source, &Page::OnDisplaySelect, this,
          [this, name](Text category, Text screen, Text item) {
            goTo(name, "OnDisplaySelect", {category, screen, item});
          });
  connect(&source, &Page::OnDIDSelect, this, [this, name](Text did, Text item) {
    goTo(name, "OnDIDSelect", {did, item});
  });
  connect(&source, &Page::OnCopyDataToScreen, this, [this, name](Text a, Text b, Text c) {
    goTo(name, "OnCopyDataToScreen", {a, b, c});
  });
}

void omnikorEditor::identify(IdentificationRequest& request) {
  if (!request.search)
    selector_->updateDetect(std::to_string(request.function), std::to_string(request.protocol),
                            std::to_string(request.diagVersion), request.supplier, request.soft,
                            request.version);
  else
    request.code = selector_->FindHrefTargetByIdentificationAndProtocol(
        request.function, request.protocol, request.diagVersion, request.supplier, request.soft,
        request.version, request.href, request.text);
}

// A way to a page that is not built leads nowhere.
void omnikorEditor::goTo(std::string_view source, std::string_view event,
                         const std::vector<std::string>& arguments) {
  const std::optional<frame::GoTo> way = frame::routeOf(source, event, arguments);
  const PageRow* row = way ? frame::rowOfPage(way->target) : nullptr;
  Page* target = row ? page(row->key) : nullptr;
  if (!target) return;
  for (const auto& [property, value] : way->writes)
    target->writeProperty(property.c_str(), value);
  if (!way->operation.empty())
    QMetaObject::invokeMethod(target, way->operation.c_str(), Qt::DirectConnection,
                              Q_ARG(QString, qs(way->arguments.at(0))),
                              Q_ARG(QString, qs(way->arguments.at(1))),
                              Q_ARG(QString, qs(way->arguments.at(2))));
  if (!way->tab.empty()) selectTab(way->tab);
}

void omnikorEditor::selectTab(std::string_view key) {
  TabStripPrincipal->setCurrentIndex(tabOf(*TabStripPrincipal, key));
}

// Also runs nested in an event of a page, when the tab is selected from code.
void omnikorEditor::tabClicked() {
  const Hourglass hourglass;
  const int tab = TabStripPrincipal->currentIndex();
  const PageRow* row = frame::rowOfTab(u8(TabStripPrincipal->tabData(tab).toString()));
  if (!row) return;
  state_.ConfirmLeavePage(currentPage_, false);
  if (row->kind == frame::PageKind::Selector) {
    ShowPage(0);
    selector_->InitMenu();
    if (database_) selector_->setDatabase(database_);
    selector_->displayDatas();
  } else if (!databaseLoaded_) {
    selectTab("database");
  } else {
    EnterPage(*row);
  }
}

void omnikorEditor::EnterPage(const PageRow& row) {
  database_ = selector_->database();
  ShowPage(row.index);
  Page* entered = page(row.key);
  if (!entered || !database_) return;
  if (row.entry == frame::Entry::WithDatas &&
      !(database_->ActiveTarget && database_->ActiveTarget->datas()))
    return;
  const std::string file = selector_->fileName().empty() ? selector_->url() : selector_->fileName();
  entered->displayDatas(*database_, row.entry == frame::Entry::WithFileName ? file : "");
}

void omnikorEditor::ShowPage(int index) {
  currentPage_ = index;
  QWidget* shown = nullptr;
  if (index == 0) shown = selector_;
  selector_->setVisible(index == 0);
  for (const Shown& candidate : pages_) {
    const bool current = candidate.row->index == index;
    candidate.page->setVisible(current);
    if (current) shown = candidate.page;
  }
  if (shown) shown->setFocus(Qt::OtherFocusReason);
}

void omnikorEditor::selected(bool loaded) {
  setTabCaption(*frame::rowOfTab("database"), "ECU");
  databaseLoaded_ = loaded;
  TabStripPrincipal->setEnabled(loaded);
  state_.SetSaveNeed(false);
  if (!loaded) return;
  const std::shared_ptr<OmnikorLibXml> open = selector_->database();
  emit DatabaseChanged(targetName().value_or(""));
  if (Page* labels = page("labels"); labels && open) labels->displayDatas(*open, "");
}

void omnikorEditor::translateControls() {
  if (texts_) desktop::TranslateControl(*this, *texts_, controlsKey);
}

void omnikorEditor::setTabCaption(const PageRow& row, const std::string& caption) {
  const int tab = tabOf(*TabStripPrincipal, row.key);
  if (tab >= 0) TabStripPrincipal->setTabText(tab, qs(caption));
}

std::string omnikorEditor::translated(std::string_view defaultText, std::string_view key) const {
  return language::global().getMultilangMessageDefault(std::string(defaultText), std::string(key));
}

void omnikorEditor::setSelectorSaveNeed(bool value) {
  selector_->saveNeed = value;
}

bool omnikorEditor::saveFile() {
  return selector_->saveFile();
}

void omnikorEditor::saveBackupFile() {
  selector_->saveBackupFile();
}

std::optional<std::string> omnikorEditor::targetName() const {
  const std::shared_ptr<OmnikorLibXml>& open = selector_->database();
  if (!open || !open->ActiveTarget) return std::nullopt;
  return open->ActiveTarget->name();
}

bool omnikorEditor::testAndConfirmChange(const PageRow& row) {
  Page* left = page(row.key);
  return left && left->TestAndConfirmChange();
}

// Pages have a help key of their own; this one is for the first page and the strip of tabs.
void omnikorEditor::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier && currentPage_ == 0)
    emit help("selector", "");
  else
    QWidget::keyPressEvent(event);
}

} // namespace kelmar
