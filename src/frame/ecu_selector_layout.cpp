// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/icons.h"
#include "desktop/qt_text.h"
#include "frame/ecu_selector_parts.h"
#include "language/multi_lang.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QShortcut>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>
#include <iterator>

namespace kelmar {

using desktop::qs;
using desktop::u8;

namespace {

/// Keys of the filter field that move on to the tree or clear the field.
class FilterKeys : public QObject {
 public:
  FilterKeys(QObject* parent, std::function<bool(int)> handle)
      : QObject(parent), handle_(std::move(handle)) {}
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    return (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier && handle_(key.key());
  }

 private:
  std::function<bool(int)> handle_;
};

} // namespace

void ecuSelector::Parts::makeControls() {
  lbDataSet = new QLabel;
  lbDataSet->setObjectName("lbDataSet");
  cbDataSet = new QComboBox;
  cbDataSet->setObjectName("cbDataSet");
  cbDataSet->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  cbDataSet->setMinimumContentsLength(8);
  lbDataSet->setBuddy(cbDataSet);
  lbFilter = new QLabel;
  lbFilter->setObjectName("lbFilter");
  txFilter = new QLineEdit;
  txFilter->setObjectName("txFilter");
  // The toolkit's own button for this looks through the desktop's themes of icons, which takes a
  // tenth of the whole start.
  acClearFilter = txFilter->addAction(icon("clear"), QLineEdit::TrailingPosition);
  acClearFilter->setObjectName("acClearFilter");
  acClearFilter->setVisible(false);
  lbFilter->setBuddy(txFilter);
  btReload = new QToolButton;
  btReload->setObjectName("btReload");
  btReload->setIcon(icon("reload"));
  btReload->setFocusPolicy(Qt::StrongFocus);
  tvEcus = new EcuTreeView(model);
  tvEcus->setObjectName("tvEcus");
  lbEmpty = new QLabel;
  lbEmpty->setObjectName("lbEmpty");
  lbEmpty->setWordWrap(true);
  lbEmpty->setAlignment(Qt::AlignCenter);
  lbEmpty->setMargin(16);
  lbEmpty->setTextFormat(Qt::PlainText);
  lbEmpty->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  lbNotShown = new QLabel;
  lbNotShown->setObjectName("lbNotShown");
  lbNotShown->setTextFormat(Qt::PlainText);
  lbNotShown->hide();
  pbSearch = new QProgressBar;
  pbSearch->setObjectName("pbSearch");
  pbSearch->setMaximumHeight(pbSearch->fontMetrics().height());
  pbSearch->hide();

  places = new QStackedWidget;
  places->addWidget(tvEcus);
  places->addWidget(lbEmpty);
  auto* dataSetLine = new QHBoxLayout;
  dataSetLine->addWidget(lbDataSet);
  dataSetLine->addWidget(cbDataSet, 1);
  auto* filterLine = new QHBoxLayout;
  filterLine->addWidget(lbFilter);
  filterLine->addWidget(txFilter, 1);
  filterLine->addWidget(btReload);
  auto* lines = new QVBoxLayout(&self);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->addLayout(filterLine);
  lines->addLayout(dataSetLine);
  lines->addWidget(places, 1);
  lines->addWidget(lbNotShown);
  lines->addWidget(pbSearch);
  // So a page can name this control in its own order: the proxy, and what follows it, go along.
  self.setFocusProxy(txFilter);
  self.setFocusPolicy(Qt::StrongFocus);
  QWidget* const order[] = {txFilter, btReload, cbDataSet, tvEcus, lbEmpty};
  for (std::size_t i = 1; i < std::size(order); ++i)
    QWidget::setTabOrder(order[i - 1], order[i]);

  txFilter->installEventFilter(new FilterKeys(&self, [this](int key) { return filterKey(key); }));
  const auto shortcut = [this](QKeySequence keys, auto does) {
    auto* made = new QShortcut(keys, &self);
    made->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(made, &QShortcut::activated, &self, does);
  };
  shortcut(Qt::Key_F5, [this] { reload(); });
  shortcut(QKeySequence::Find, [this] {
    txFilter->setFocus(Qt::ShortcutFocusReason);
    txFilter->selectAll();
  });
}

void ecuSelector::Parts::showTexts() {
  const CMultiLangEx& texts = language::global();
  lbDataSet->setText(
      qs(texts.getMultilangMessageDefault("Data &set:", "ECUSELECTOR/CONTROLS/lbDataSet/caption")));
  const QString dataSetTip = qs(texts.getMultilangMessageDefault(
      "Which vehicles and ECUs the tree shows", "ECUSELECTOR/CONTROLS/cbDataSet/toolTip"));
  cbDataSet->setToolTip(dataSetTip);
  lbFilter->setText(
      qs(texts.getMultilangMessageDefault("Fi&lter:", "ECUSELECTOR/CONTROLS/lbFilter/caption")));
  txFilter->setPlaceholderText(qs(texts.getMultilangMessageDefault(
      "Part of a name or folder", "ECUSELECTOR/CONTROLS/txFilter/placeholder")));
  txFilter->setToolTip(qs(texts.getMultilangMessageDefault(
      "Shows only the files whose path holds all these words (Ctrl F)",
      "ECUSELECTOR/CONTROLS/txFilter/toolTip")));
  acClearFilter->setToolTip(qs(texts.getMultilangMessageDefault(
      "Show all files (Esc)", "ECUSELECTOR/CONTROLS/acClearFilter/toolTip")));
  btReload->setToolTip(qs(texts.getMultilangMessageDefault(
      "Read the folders again (F5)", "ECUSELECTOR/CONTROLS/btReload/toolTip")));
  cbDataSet->setAccessibleName(qs(
      texts.getMultilangMessageDefault("Data set", "ECUSELECTOR/CONTROLS/cbDataSet/accessible")));
  txFilter->setAccessibleName(qs(texts.getMultilangMessageDefault(
      "Filter of the tree", "ECUSELECTOR/CONTROLS/txFilter/accessible")));
  btReload->setAccessibleName(
      qs(texts.getMultilangMessageDefault("Reload", "ECUSELECTOR/CONTROLS/btReload/accessible")));
  tvEcus->setAccessibleName(qs(texts.getMultilangMessageDefault(
      "Vehicles and ECU files", "ECUSELECTOR/CONTROLS/tvEcus/accessible")));
  pbSearch->setAccessibleName(qs(texts.getMultilangMessageDefault(
      "Progress of the search", "ECUSELECTOR/CONTROLS/pbSearch/accessible")));
  if (site && !site->description(lang).empty())
    cbDataSet->setToolTip(dataSetTip + "\n" + qs(site->description(lang)));
  showPlace();
}

void ecuSelector::Parts::showPlace() {
  const CMultiLangEx& texts = language::global();
  std::string empty;
  if (!initialised) {
    empty = texts.getMultilangMessageDefault("No site has been opened yet.",
                                             "ECUSELECTOR/MSG/notInitialised/text");
  } else if (!site) {
    empty = texts.getMultilangMessageDefault(
        "There is no tree of vehicles to show.{crlf}{crlf}{0}{crlf}{crlf}Put the parameter file "
        "right and press F5 to try again, or open an ECU file with the button Open.",
        "ECUSELECTOR/MSG/noSite/text", siteTrouble);
  } else if (model.tree().files == 0) {
    const bool missing = !dataSet() || !model.tree().troubles.empty();
    empty = texts.getMultilangMessageDefault(
        "There are no ECU files in the data set \"{0}\".{crlf}{crlf}{1}{crlf}{crlf}Put ECU files "
        "(*.xml) there, in one folder for each vehicle and family, and press F5.",
        "ECUSELECTOR/MSG/emptyTree/text", dataSet() ? dataSet()->label : std::string(),
        missing && !model.tree().troubles.empty() ? model.tree().troubles.front()
                                                  : model.tree().root.address);
  } else if (model.rowCount() == 0) {
    empty = texts.getMultilangMessageDefault(
        "No vehicle, family or ECU file fits the filter \"{0}\".{crlf}{crlf}Press Escape in the "
        "filter to see all {1} files again.",
        "ECUSELECTOR/MSG/noMatch/text", u8(txFilter->text().trimmed()),
        std::to_string(model.tree().files));
  }
  lbEmpty->setText(qs(empty));
  lbEmpty->setAccessibleName(qs(empty));
  places->setCurrentWidget(empty.empty() ? static_cast<QWidget*>(tvEcus) : lbEmpty);

  const auto& troubles = model.tree().troubles;
  lbNotShown->setVisible(empty.empty() && !troubles.empty());
  lbNotShown->setText(qs(texts.getMultilangMessageDefault("{0} entries are not shown",
                                                          "ECUSELECTOR/MSG/notShown/text",
                                                          std::to_string(troubles.size()))));
  QStringList lines;
  for (std::size_t i = 0; i < std::min<std::size_t>(troubles.size(), 20); ++i)
    lines += qs(troubles[i]);
  if (troubles.size() > 20) lines += "...";
  lbNotShown->setToolTip(lines.join('\n').toHtmlEscaped().replace('\n', "<br>"));

  const bool severalSets = site && site->dataSets.size() > 1;
  lbDataSet->setVisible(severalSets);
  cbDataSet->setVisible(severalSets);
  txFilter->setEnabled(site && model.tree().files > 0);
}

} // namespace kelmar
