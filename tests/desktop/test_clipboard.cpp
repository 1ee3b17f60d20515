// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/clipboard.h"
#include "desktop/dropped_file.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QUrl>
#include <gtest/gtest.h>

using namespace kelmar::desktop;

namespace {

TEST(Clipboard, GivesBackWhatWasPutThere) {
  setClipboardText("'Name\tMnemo\r\nVitesse é\t\xE2\x82\xAC\r\n");
  EXPECT_EQ(clipboardText(), "'Name\tMnemo\r\nVitesse é\t\xE2\x82\xAC\r\n");
  setClipboardText("");
  EXPECT_EQ(clipboardText(), "");
}

TEST(Clipboard, PrefersPlainTextToAWebPage) {
  auto* both = new QMimeData;
  both->setHtml("<table><tr><td>1</td></tr></table>");
  both->setText("1\t2");
  QGuiApplication::clipboard()->setMimeData(both);
  EXPECT_EQ(clipboardText(), "1\t2");
}

TEST(Clipboard, IsEmptyTextForAPicture) {
  QGuiApplication::clipboard()->setImage(QImage(2, 2, QImage::Format_RGB32));
  EXPECT_EQ(clipboardText(), "");
}

TEST(DroppedFile, IsTheFirstLocalOne) {
  QMimeData drop;
  drop.setUrls({QUrl("http://host.example/a.xml"), QUrl::fromLocalFile("/tmp/é b.xml"),
                QUrl::fromLocalFile("/tmp/c.xml")});
  EXPECT_EQ(firstDroppedFile(&drop), "/tmp/é b.xml");
}

TEST(DroppedFile, IsNoneForTextAndForWebAddresses) {
  QMimeData drop;
  EXPECT_EQ(firstDroppedFile(&drop), std::nullopt);
  drop.setText("/tmp/a.xml");
  EXPECT_EQ(firstDroppedFile(&drop), std::nullopt);
  drop.setUrls({QUrl("http://host.example/a.xml")});
  EXPECT_EQ(firstDroppedFile(&drop), std::nullopt);
  EXPECT_EQ(firstDroppedFile(nullptr), std::nullopt);
}

} // namespace
