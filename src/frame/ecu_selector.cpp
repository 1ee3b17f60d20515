// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/ecu_selector.h"

#include "base/failure.h"
#include "desktop/qt_text.h"
#include "frame/ecu_selector_parts.h"
#include "frame/rules/ecu_head_text.h"
#include "frame/rules/identification_search.h"
#include "language/multi_lang.h"

#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <QPointer>
#include <QProgressBar>
#include <QScrollBar>
#include <QToolButton>

namespace kelmar {

using desktop::qs;
using desktop::u8;

namespace {

// Selections that follow one another faster are passed over: arrow keys held down.
constexpr int announceDelay = 60; // ms
// What reading heads for icons may take at a stretch.
constexpr int headBudget = 8;  // ms
constexpr int searchStep = 40; // ms between two steps of the progress bar

} // namespace

ecuSelector::Parts::Parts(ecuSelector& selector) : self(selector) {
  makeControls();
  announceTimer.setSingleShot(true);
  headTimer.setSingleShot(true);
  QObject::connect(&announceTimer, &QTimer::timeout, &self, [this] { announceSelection(); });
  QObject::connect(&headTimer, &QTimer::timeout, &self, [this] { readHeadsInSight(); });
  QObject::connect(tvEcus, &EcuTreeView::sightChanged, &self, [this] { headTimer.start(0); });
  QObject::connect(tvEcus, &EcuTreeView::opened, &self, &ecuSelector::fileChosen);
  QObject::connect(tvEcus->selectionModel(), &QItemSelectionModel::currentChanged, &self,
                   [this](const QModelIndex& index) { select(index); });
  QObject::connect(txFilter, &QLineEdit::textChanged, &self, [this](const QString& text) {
    acClearFilter->setVisible(!text.isEmpty());
    filter();
  });
  QObject::connect(acClearFilter, &QAction::triggered, txFilter, &QLineEdit::clear);
  QObject::connect(btReload, &QToolButton::clicked, &self, [this] { reload(); });
  QObject::connect(cbDataSet, &QComboBox::activated, &self,
                   [this](int index) { chooseDataSet(index); });
  showTexts();
}

const DataSet* ecuSelector::Parts::dataSet() const {
  return site && dataSetIndex >= 0 ? &site->dataSets[static_cast<std::size_t>(dataSetIndex)]
                                   : nullptr;
}

// Keeps the data set in use, by its label.
void ecuSelector::Parts::readSite() {
  const std::string label = dataSet() ? dataSet()->label : std::string();
  site.reset();
  siteTrouble.clear();
  dataSetIndex = -1;
  cbDataSet->clear();
  try {
    site = readSiteParameters(basePath, parametersFile);
  } catch (const Failure& failure) {
    siteTrouble = failure.text;
    return;
  }
  dataSetIndex = 0;
  for (std::size_t i = 0; i < site->dataSets.size(); ++i) {
    cbDataSet->addItem(qs(site->dataSets[i].label));
    if (site->dataSets[i].label == label) dataSetIndex = static_cast<int>(i);
  }
  cbDataSet->setCurrentIndex(dataSetIndex);
}

void ecuSelector::Parts::readTree() {
  restoring = true;
  model.setTree(dataSet() ? readEcuTree(dataSet()->folder, site->root) : EcuTree{});
  if (model.isFiltered())
    tvEcus->expandAll();
  else if (openFolders.empty() && model.rowCount() == 1)
    tvEcus->expand(model.index(0, 0));
  else
    tvEcus->setOpenFolders(openFolders);
  restoring = false;
  restoreSelection();
  showTexts();
}

void ecuSelector::Parts::reload() {
  if (!initialised || searching) return;
  if (!model.isFiltered()) openFolders = tvEcus->openFolders();
  const std::string before = dataSet() ? dataSet()->label : std::string();
  const std::string selectedBefore = selected;
  const int scrolled = tvEcus->verticalScrollBar()->value();
  readSite();
  readTree();
  tvEcus->verticalScrollBar()->setValue(scrolled);
  if (selected.empty() && !selectedBefore.empty()) emit self.selectionChanged();
  if (const std::string now = dataSet() ? dataSet()->label : std::string(); now != before)
    emit self.dataSetChanged(qs(now));
  emit self.treeReloaded();
}

void ecuSelector::Parts::chooseDataSet(int index) {
  if (index == dataSetIndex || index < 0 || searching) {
    cbDataSet->setCurrentIndex(dataSetIndex);
    return;
  }
  dataSetIndex = index;
  openFolders.clear();
  const bool hadSelection = !selected.empty();
  forgetSelection();
  readTree();
  if (hadSelection) emit self.selectionChanged();
  emit self.dataSetChanged(qs(dataSet()->label));
}

void ecuSelector::Parts::filter() {
  if (!model.isFiltered()) openFolders = tvEcus->openFolders();
  restoring = true;
  model.setFilter(u8(txFilter->text()));
  if (model.isFiltered())
    tvEcus->expandAll();
  else
    tvEcus->setOpenFolders(openFolders);
  restoring = false;
  restoreSelection();
  showPlace();
}

bool ecuSelector::Parts::filterKey(int key) {
  switch (key) {
  case Qt::Key_Escape:
    if (txFilter->text().isEmpty()) return false;
    txFilter->clear();
    return true;
  case Qt::Key_Down:
  case Qt::Key_Return:
  case Qt::Key_Enter: {
    if (!tvEcus->isVisible()) return true;
    QModelIndex index = tvEcus->currentIndex();
    if (!index.isValid() || model.shownFiles() == 1)
      index = model.isFiltered() ? model.firstFile() : model.index(0, 0);
    if (index.isValid()) tvEcus->setCurrentIndex(index);
    // When the filter has left a single file, there is no doubt which one is meant.
    if (key != Qt::Key_Down && model.isFiltered() && model.shownFiles() == 1)
      emit self.fileChosen(qs(model.nodeOf(index)->address));
    else
      tvEcus->setFocus(Qt::OtherFocusReason);
    return true;
  }
  default:
    return false;
  }
}

void ecuSelector::Parts::select(const QModelIndex& index) {
  // What the filter hides stays selected.
  if (restoring || !index.isValid()) return;
  const EcuTreeNode& node = *model.nodeOf(index);
  selected = node.address;
  selectedIsFile = node.isFile;
  selectedHead.reset();
  announceTimer.start(announceDelay);
}

void ecuSelector::Parts::forgetSelection() {
  selected.clear();
  selectedIsFile = false;
  selectedHead.reset();
  announceTimer.stop();
}

// After the rows have changed. What the person had selected is read again, for its file may be
// another one by now.
void ecuSelector::Parts::restoreSelection() {
  if (selected.empty()) return;
  restoring = true;
  const QModelIndex index = model.indexOf(selected);
  if (index.isValid()) {
    tvEcus->setCurrentIndex(index);
    tvEcus->scrollTo(index);
  }
  restoring = false;
  if (index.isValid() || model.isFiltered()) {
    selectedHead.reset();
    announceTimer.start(announceDelay);
  } else {
    forgetSelection();
  }
}

const EcuHead& ecuSelector::Parts::head() {
  if (!selectedHead) {
    selectedHead = selectedIsFile ? readEcuHead(selected) : EcuHead{};
    if (selectedIsFile) model.setHead(model.indexOf(selected), *selectedHead);
  }
  return *selectedHead;
}

void ecuSelector::Parts::announceSelection() {
  if (searching) {
    announceTimer.start(announceDelay);
    return;
  }
  if (selected.empty()) return;
  const auto function = head().functionAddress;
  if (function && function != announcedFunction) {
    announcedFunction = function;
    emit self.functionAddressChanged(*function);
  }
  emit self.selectionChanged();
}

void ecuSelector::Parts::readHeadsInSight() {
  if (searching || !tvEcus->isVisible()) return;
  QElapsedTimer time;
  time.start();
  const int bottom = tvEcus->viewport()->height();
  for (QModelIndex index = tvEcus->indexAt(QPoint(0, 0));
       index.isValid() && tvEcus->visualRect(index).top() < bottom;
       index = tvEcus->indexBelow(index)) {
    if (model.hasHead(index)) continue;
    model.setHead(index, readEcuHead(model.nodeOf(index)->address));
    if (time.elapsed() >= headBudget) {
      headTimer.start(0);
      return;
    }
  }
}

int ecuSelector::Parts::find(const Identification& wanted, std::string& address) {
  address.clear();
  if (searching) return -1;
  searching = true;
  const std::vector<std::string> files = ecuFilesOf(model.tree());
  QElapsedTimer sinceStep;
  sinceStep.start();
  const QPointer<ecuSelector> alive(&self);
  const auto progress = [&](std::size_t done, std::size_t total) {
    if (sinceStep.elapsed() < searchStep) return true;
    pbSearch->setRange(0, static_cast<int>(total));
    pbSearch->setValue(static_cast<int>(done));
    pbSearch->show();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    sinceStep.start();
    return !alive.isNull();
  };
  const IdentificationMatch match = kelmar::findByIdentification(files, wanted, progress);
  if (alive.isNull()) return -1;
  pbSearch->hide();
  searching = false;
  headTimer.start(0);
  address = match.address;
  return match.code;
}

ecuSelector::ecuSelector(QWidget* parent)
    : QWidget(parent), parts_(std::make_unique<Parts>(*this)) {}

// The controls live with this widget and use the model until they go.
ecuSelector::~ecuSelector() {
  qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
}

std::string ecuSelector::lang() const {
  return parts_->lang;
}

void ecuSelector::setLang(const std::string& code) {
  parts_->lang = code;
  parts_->showTexts();
}

std::string ecuSelector::RemoteDataServer() const {
  return parts_->server;
}

void ecuSelector::setRemoteDataServer(const std::string& server) {
  parts_->server = server;
}

void ecuSelector::initialise(const std::string& basePath, const std::string& parametersFile,
                             const std::string& siteKey) {
  parts_->basePath = basePath;
  parts_->parametersFile = parametersFile;
  parts_->siteKey = siteKey;
  parts_->initialised = true;
  parts_->readSite();
  parts_->readTree();
}

std::string ecuSelector::currentAddress() const {
  return parts_->selectedIsFile ? parts_->selected : std::string();
}

std::string ecuSelector::description() const {
  if (parts_->selectedIsFile) return describeHead(parts_->head(), language::global());
  const EcuTreeNode* folder = parts_->model.nodeOf(parts_->model.indexOf(parts_->selected));
  if (!folder) return {};
  EcuTree below;
  below.root = *folder;
  return language::global().getMultilangMessageDefault(
      "{0}: {1} ECU files", "ECUSELECTOR/MSG/description/folder/text", folder->name,
      std::to_string(ecuFilesOf(below).size()));
}

std::int32_t ecuSelector::functionAddress() const {
  return parts_->selectedIsFile ? parts_->head().functionAddress.value_or(0) : 0;
}

std::string ecuSelector::addressingFile() const {
  return parts_->site ? parts_->site->addressingFile : std::string();
}

std::string ecuSelector::projectsFile() const {
  return parts_->site ? parts_->site->projectsFile : std::string();
}

std::string ecuSelector::selectionLabel() const {
  return parts_->dataSet() ? parts_->dataSet()->label : std::string();
}

std::string ecuSelector::xmlEncoding() const {
  return parts_->site ? parts_->site->xmlEncoding.value_or("") : std::string();
}

bool ecuSelector::hasXmlStyleSheet() const {
  return parts_->site && parts_->site->xmlStyleSheet;
}

std::string ecuSelector::xmlStyleSheet() const {
  return hasXmlStyleSheet() ? *parts_->site->xmlStyleSheet : std::string();
}

int ecuSelector::findByIdentification(std::int32_t function, std::int32_t protocol,
                                      std::int32_t diagVersion, const std::string& supplier,
                                      const std::string& soft, const std::string& version,
                                      std::string& address) {
  return parts_->find({function, protocol, diagVersion, supplier, soft, version}, address);
}

void ecuSelector::reload() {
  parts_->reload();
}

} // namespace kelmar
