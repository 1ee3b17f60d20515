// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/data_description.h"

#include "desktop/qt_text.h"
#include "support/http_server.h"
#include "support/temp_folder.h"
#include "support/user.h"

#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextFragment>
#include <gtest/gtest.h>

namespace kelmar {
namespace {

using namespace support;
using desktop::u8;

class DataDescription : public testing::Test {
 protected:
  std::unique_ptr<frmDataDescription> dialog;

  void open(const std::string& fiche) {
    dialog = std::make_unique<frmDataDescription>("Data Speed", fiche, nullptr);
    showToUser(*dialog);
  }
  QuietBrowser& page() { return usable<QuietBrowser>(*dialog, "WebBrowser1"); }
  QuietBrowser& text() { return usable<QuietBrowser>(*dialog, "rtbDescription"); }
  /// The format of the first piece that holds the text.
  QTextCharFormat formatOf(const QString& piece) {
    for (QTextBlock block = text().document()->begin(); block.isValid(); block = block.next())
      for (auto at = block.begin(); !at.atEnd(); ++at)
        if (at.fragment().text().contains(piece)) return at.fragment().charFormat();
    ADD_FAILURE() << "no " << piece.toStdString();
    return {};
  }
  static bool shows(QWidget& widget, const QColor& colour) {
    const QImage picture = widget.grab().toImage();
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x)
        if (picture.pixelColor(x, y) == colour) return true;
    return false;
  }
};

TEST_F(DataDescription, PlainTextCanBeEdited) {
  open("one\r\ntwo");
  EXPECT_EQ(dialog->windowTitle(), "Data Speed");
  EXPECT_EQ(text().toPlainText(), "one\ntwo");
  EXPECT_FALSE(control<QuietBrowser>(*dialog, "WebBrowser1").isVisible());
  EXPECT_EQ(u8(control<QPushButton>(*dialog, "OKButton").text()), "Save");
  EXPECT_EQ(u8(control<QPushButton>(*dialog, "CancelButton").text()), "Close");
  EXPECT_EQ(dialog->text(), "one\r\ntwo") << "untouched, it keeps its line ends";
  QTest::keyClick(&text(), Qt::Key_End, Qt::ControlModifier);
  QTest::keyClick(&text(), Qt::Key_Return);
  type(text(), "three");
  EXPECT_EQ(dialog->text(), "one\r\ntwo\r\nthree");
  click(usable<QPushButton>(*dialog, "OKButton"));
  EXPECT_EQ(dialog->result(), QDialog::Accepted);
}

TEST_F(DataDescription, NoBreakSpacesStay) {
  open("a\u00A0:\r\nb");
  EXPECT_EQ(dialog->text(), "a\u00A0:\r\nb");
  QTest::keyClick(&text(), Qt::Key_End, Qt::ControlModifier);
  type(text(), "c");
  EXPECT_EQ(dialog->text(), "a\u00A0:\r\nbc");
}

TEST_F(DataDescription, CloseAndEscapeSaveNothing) {
  open("plain");
  retype(text(), "other");
  click(usable<QPushButton>(*dialog, "CancelButton"));
  EXPECT_EQ(dialog->result(), QDialog::Rejected);
  open("plain");
  press(text(), Qt::Key_Escape);
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_EQ(dialog->result(), QDialog::Rejected);
}

TEST_F(DataDescription, PlainTextIsNotReadAsAPageOrAsMarkup) {
  open("<b>bold</b> <p>small</p> {\\rtf}");
  EXPECT_EQ(text().toPlainText(), "<b>bold</b> <p>small</p> {\\rtf}");
  EXPECT_FALSE(text().isReadOnly());
}

TEST_F(DataDescription, APageIsShownAndCannotBeEdited) {
  for (const char* fiche : {"<P>text</P>", "<DIV>text</DIV>"}) {
    open(fiche);
    EXPECT_EQ(page().toPlainText().trimmed(), "text");
    type(page(), "x");
    EXPECT_EQ(page().toPlainText().trimmed(), "text");
    EXPECT_FALSE(control<QPushButton>(*dialog, "OKButton").isEnabled());
    EXPECT_EQ(dialog->text(), fiche);
  }
}

TEST_F(DataDescription, NoScriptOfAPageRuns) {
  open("<P id='a'>text</P><script>document.getElementById('a').innerText='no';"
       "document.write('no')</script><P onclick=\"alert('no')\">end</P>"
       "<iframe src=\"javascript:alert('no')\"></iframe>");
  EXPECT_FALSE(page().toPlainText().contains("no")) << u8(page().toPlainText());
  EXPECT_TRUE(page().toPlainText().contains("end"));
}

TEST_F(DataDescription, NothingIsFetchedFromTheNet) {
  HttpServer server;
  for (const char* path : {"/a.png", "/b.css", "/c.png", "/d.htm"})
    server.serve(path, "x");
  open("<html><head><link rel=\"stylesheet\" href=\"" + server.address("/b.css") +
       "\"><style>P { background-image: url(" + server.address("/c.png") +
       ") }</style></head><P>text <img src=\"" + server.address("/a.png") +
       "\"></P><iframe src=\"" + server.address("/d.htm") + "\"></iframe>");
  page().grab();
  EXPECT_FALSE(waitUntil([&] { return !server.requests().empty(); }, 300));
}

TEST_F(DataDescription, NoPictureOfTheDiskIsShown) {
  const TempFolder folder;
  QImage red(40, 40, QImage::Format_RGB32);
  red.fill(Qt::red);
  const QString file = QString::fromStdString(folder.file("red.png"));
  ASSERT_TRUE(red.save(file));
  for (const std::string& source : {folder.file("red.png"), "file://" + folder.file("red.png")}) {
    open("<P>before<img src=\"" + source + "\">behind</P>");
    EXPECT_FALSE(shows(page(), Qt::red)) << source;
  }
}

TEST_F(DataDescription, AClickedLinkLeadsNowhere) {
  const TempFolder folder;
  const std::string other = folder.write("other.htm", "<P>elsewhere</P>");
  open("<P><a href=\"file://" + other + "\">a link that is long enough to be met</a></P>");
  const QPoint where = page().cursorRect().center() + QPoint(40, 0);
  ASSERT_TRUE(page().anchorAt(where).endsWith("other.htm"));
  QTest::mouseClick(page().viewport(), Qt::LeftButton, {}, where);
  press(page(), Qt::Key_Return);
  EXPECT_FALSE(page().toPlainText().contains("elsewhere"));
  EXPECT_TRUE(page().source().isEmpty());
}

TEST_F(DataDescription, RichTextIsShownFormattedAndReadOnly) {
  const std::string fiche =
      "{\\rtf1\\ansi\\ansicpg1252{\\colortbl;\\red0\\green128\\blue0;}\\fs20 plain {\\b heavy} "
      "{\\i slanted} {\\ul lined} {\\fs40 large} {\\cf1 green} \\'e9t\\'e9 \\u937?\\par "
      "{\\pntext\\'B7\\tab}item\\par}";
  open(fiche);
  EXPECT_TRUE(text().toPlainText().contains(QStringLiteral("été Ω")));
  EXPECT_GE(formatOf("heavy").fontWeight(), QFont::Bold);
  EXPECT_TRUE(formatOf("slanted").fontItalic());
  EXPECT_TRUE(formatOf("lined").fontUnderline());
  EXPECT_EQ(formatOf("large").fontPointSize(), 20);
  EXPECT_EQ(formatOf("green").foreground().color(), QColor(0, 128, 0));
  EXPECT_LT(formatOf("plain").fontWeight(), QFont::Bold);
  const QString before = text().toPlainText();
  type(text(), "x");
  press(text(), Qt::Key_Delete);
  EXPECT_EQ(text().toPlainText(), before);
  EXPECT_FALSE(control<QPushButton>(*dialog, "OKButton").isEnabled());
  EXPECT_EQ(dialog->text(), fiche);
}

TEST_F(DataDescription, RichTextThatIsBrokenOffFallsBackToItsText) {
  open("{\\rtf1\\ansi what is left {\\b of it {\\*\\unknown hidden");
  EXPECT_EQ(text().toPlainText().trimmed(), "what is left of it");
}

TEST_F(DataDescription, ColoursOfTheTextStandOnWhitePaperInADarkPalette) {
  const QPalette before = QApplication::palette();
  QPalette dark = before;
  for (const auto role : {QPalette::Base, QPalette::Window})
    dark.setColor(role, QColor(30, 30, 30));
  for (const auto role : {QPalette::Text, QPalette::WindowText})
    dark.setColor(role, Qt::white);
  QApplication::setPalette(dark);
  open("{\\rtf1{\\colortbl;\\red0\\green0\\blue0;}\\cf1 black}");
  EXPECT_EQ(text().palette().color(QPalette::Base), QColor(Qt::white));
  EXPECT_EQ(text().palette().color(QPalette::Text), QColor(Qt::black));
  open("plain");
  EXPECT_EQ(text().palette().color(QPalette::Base), QColor(30, 30, 30)) << "as any field";
  dialog.reset();
  QApplication::setPalette(before);
}

TEST_F(DataDescription, AVeryLongTextOpens) {
  std::string fiche;
  for (int i = 0; i < 2000; ++i)
    fiche += "<P>Paragraph " + std::to_string(i) + "</P>";
  open(fiche);
  EXPECT_TRUE(page().toPlainText().contains("Paragraph 1999"));
}

TEST_F(DataDescription, AWordOfTwoMegabytesIsNotBrokenIntoLines) {
  open(std::string(2'000'000, 'w'));
  EXPECT_EQ(text().lineWrapMode(), QTextEdit::NoWrap);
  EXPECT_EQ(text().toPlainText().size(), 2'000'000);
  open("Words that fit");
  EXPECT_EQ(text().lineWrapMode(), QTextEdit::WidgetWidth);
}

} // namespace
} // namespace kelmar
