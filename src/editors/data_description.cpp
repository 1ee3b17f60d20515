// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/data_description.h"

#include "base/text.h"
#include "desktop/document_text.h"
#include "desktop/qt_text.h"
#include "desktop/translate_control.h"
#include "editors/rules/datas/fiche.h"
#include "language/multi_lang.h"

#include <QHBoxLayout>
#include <QImage>
#include <QPushButton>
#include <QVBoxLayout>

namespace kelmar {

using desktop::qs;
using desktop::u8;

namespace {

/// A word that no line can hold by far.
bool hasEndlessWord(std::string_view text) {
  constexpr std::size_t endless = 10000;
  std::size_t length = 0;
  for (const char c : text) {
    length = c == ' ' || c == '\n' || c == '\r' || c == '\t' ? 0 : length + 1;
    if (length > endless) return true;
  }
  return false;
}

} // namespace

QuietBrowser::QuietBrowser(QWidget* parent) : QTextBrowser(parent) {
  setOpenLinks(false);
  setOpenExternalLinks(false);
}

QVariant QuietBrowser::loadResource(int type, const QUrl&) {
  if (type != QTextDocument::ImageResource) return {};
  // Without a picture in its place the text would look for the file by itself.
  QImage leftOut(16, 16, QImage::Format_ARGB32_Premultiplied);
  leftOut.fill(Qt::transparent);
  return leftOut;
}

void QuietBrowser::showOnPaper() {
  QPalette paper;
  paper.setColor(QPalette::Base, Qt::white);
  paper.setColor(QPalette::Text, Qt::black);
  paper.setColor(QPalette::Link, Qt::blue);
  setPalette(paper);
}

frmDataDescription::frmDataDescription(const QString& title, const std::string& fiche,
                                       QWidget* parent)
    : QDialog(parent), fiche_(fiche), WebBrowser1(new QuietBrowser(this)),
      rtbDescription(new QuietBrowser(this)) {
  setObjectName(QStringLiteral("frmDataDescription"));
  setWindowTitle(title);
  WebBrowser1->setObjectName(QStringLiteral("WebBrowser1"));
  rtbDescription->setObjectName(QStringLiteral("rtbDescription"));
  auto* OKButton = new QPushButton(QStringLiteral("Save"), this);
  OKButton->setObjectName(QStringLiteral("OKButton"));
  auto* CancelButton = new QPushButton(QStringLiteral("Close"), this);
  CancelButton->setObjectName(QStringLiteral("CancelButton"));
  OKButton->setAutoDefault(false);
  CancelButton->setAutoDefault(false);

  auto* rows = new QVBoxLayout(this);
  rows->addWidget(WebBrowser1);
  rows->addWidget(rtbDescription);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(OKButton);
  buttons->addWidget(CancelButton);
  rows->addLayout(buttons);
  resize(640, 420);

  const FicheKind kind = ficheKind(fiche);
  editable_ = kind == FicheKind::Plain;
  WebBrowser1->setVisible(kind == FicheKind::Page);
  rtbDescription->setVisible(kind != FicheKind::Page);
  rtbDescription->setReadOnly(!editable_);
  OKButton->setEnabled(editable_);
  rtbDescription->setAcceptRichText(false);
  rtbDescription->setUndoRedoEnabled(true);
  for (QuietBrowser* shown : {WebBrowser1, rtbDescription}) {
    shown->setAccessibleName(title);
    // Its colours were chosen for white paper, whatever the palette of the desktop.
    if (!editable_) shown->showOnPaper();
  }
  if (hasEndlessWord(fiche)) {
    // Breaking it would take the toolkit a time that grows with the square of its length.
    for (QuietBrowser* shown : {WebBrowser1, rtbDescription})
      shown->setLineWrapMode(QTextEdit::NoWrap);
  }
  if (kind == FicheKind::Page)
    WebBrowser1->setHtml(qs(fichePage(fiche)));
  else if (kind == FicheKind::RichText)
    rtbDescription->setHtml(qs(richTextToHtml(fiche)));
  else
    rtbDescription->setPlainText(qs(fiche));

  desktop::TranslateControl(*this, language::global(), "DATADESCRIPTION/CONTROLS");
  connect(OKButton, &QPushButton::clicked, this, &QDialog::accept);
  connect(CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

std::string frmDataDescription::text() const {
  if (!editable_) return fiche_;
  const std::string shown = u8(desktop::documentText(*rtbDescription->document()));
  // The field knows line feeds only; a text that was not touched keeps the ends that it has.
  return replaceAll(fiche_, "\r\n", "\n") == shown ? fiche_ : widenLineFeeds(shown);
}

} // namespace kelmar
