// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/report_list.h"

#include "controls/list_view.h"
#include "desktop/clipboard.h"
#include "desktop/qt_text.h"
#include "frame/rules/selector_load_report.h"
#include "language/multi_lang.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace kelmar {

using desktop::qs;

namespace {

std::string cellOf(const NotKept& item, int column) {
  switch (column) {
  case 0:
    return item.kind;
  case 1:
    return item.name;
  case 2:
    return item.path;
  case 3:
    return item.line == 0 ? std::string() : std::to_string(item.line);
  default:
    return item.reason;
  }
}

std::vector<RowColumn> columns(const CMultiLangEx& texts) {
  return {
      {"", texts.getMultilangMessageDefault("Kind", "SELECTOR/MSG/LOAD_REPORT/columnKind"),
       SortType::Text, 90},
      {"", texts.getMultilangMessageDefault("Name", "SELECTOR/MSG/LOAD_REPORT/columnName"),
       SortType::Text, 170},
      {"", texts.getMultilangMessageDefault("Where", "SELECTOR/MSG/LOAD_REPORT/columnPath"),
       SortType::Text, 250},
      {"", texts.getMultilangMessageDefault("Line", "SELECTOR/MSG/LOAD_REPORT/columnLine"),
       SortType::Number, 60},
      {"", texts.getMultilangMessageDefault("Reason", "SELECTOR/MSG/LOAD_REPORT/columnReason"),
       SortType::Text, 0},
  };
}

} // namespace

ReportList::ReportList(LoadReport report, QWidget* parent)
    : QDialog(parent), report_(std::move(report)) {
  const CMultiLangEx& texts = language::global();
  setObjectName(QStringLiteral("ReportList"));
  setWindowTitle(qs(loadReportHeadline(texts, report_.size())));
  auto* explanation = new QLabel(
      qs(texts.getMultilangMessageDefault(
          "These items stand in the file but could not be taken over. Saving writes the file "
          "without them.",
          "SELECTOR/MSG/LOAD_REPORT/explanation")),
      this);
  explanation->setWordWrap(true);

  RowFunctions functions;
  functions.text = [](RowTag tag, int column) {
    return cellOf(*static_cast<const NotKept*>(tag), column);
  };
  functions.look = [](RowTag tag) {
    RowLook look;
    look.toolTip = static_cast<const NotKept*>(tag)->reason;
    return look;
  };
  list_ = new ListView(columns(texts), functions, this);
  list_->setObjectName(QStringLiteral("lstReport"));
  list_->setAccessibleName(windowTitle());
  list_->setHeaderSorts(true);
  list_->header()->setStretchLastSection(true);
  std::vector<RowTag> tags;
  for (NotKept& item : report_)
    tags.push_back(&item);
  list_->rows().setRows(std::move(tags));

  auto* buttons = new QDialogButtonBox(this);
  QPushButton* copyButton = buttons->addButton(
      qs(texts.getMultilangMessageDefault("Copy", "SELECTOR/MSG/LOAD_REPORT/copy")),
      QDialogButtonBox::ActionRole);
  copyButton->setObjectName(QStringLiteral("cmdCopyReport"));
  copyButton->setAutoDefault(false);
  QPushButton* closeButton = buttons->addButton(
      qs(texts.getMultilangMessageDefault("Close", "SELECTOR/MSG/LOAD_REPORT/close")),
      QDialogButtonBox::RejectRole);
  closeButton->setObjectName(QStringLiteral("cmdCloseReport"));
  closeButton->setDefault(true);
  connect(copyButton, &QPushButton::clicked, this, &ReportList::copy);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(explanation);
  layout->addWidget(list_, 1);
  layout->addWidget(buttons);
  resize(900, 420);
}

void ReportList::copy() const {
  std::string text;
  for (const NotKept& item : report_)
    text += loadReportLine(language::global(), item) + "\n";
  desktop::setClipboardText(text);
}

} // namespace kelmar
