// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files.h"
#include "random_document.h"

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace kelmar::xml::testing {
namespace {

// Files that are judged on a thread of its own beside the parse.
class LargeFile : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (std::filesystem::temp_directory_path() / "kelmar-XXXXXX").string();
    ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
    folder_ = pattern;
    path_ = pattern + "/large file.xml";
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  void write(const std::string& bytes) const { std::ofstream(path_, std::ios::binary) << bytes; }

  static std::string items(std::size_t count, const std::string& lineEnd = "\n") {
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
      text += "<Item Name=\"é number " + std::to_string(i) + "\">" + lineEnd +
              "<Comment><![CDATA[one" + lineEnd + "two]]></Comment></Item>" + lineEnd;
    return text;
  }

  std::filesystem::path folder_;
  std::string path_;
};

constexpr std::size_t many = 30'000; // about two megabytes

TEST_F(LargeFile, GivesTheSameTreeAsItsBytes) {
  for (const std::string head :
       {"<?xml version='1.0'?>", "\xEF\xBB\xBF", "<!DOCTYPE xml [<!ENTITY e 'x'>]>", "<?p a\nb?>"})
    for (const std::string lineEnd : {"\n", "\r\n", "\r"}) {
      const std::string text = head + "<xml>" + items(many, lineEnd) + "</xml>";
      write(text);
      for (const auto whitespace : {Whitespace::Keep, Whitespace::DropBetweenElements}) {
        Document fromFile, fromBytes;
        ASSERT_TRUE(fromFile.load(path_, nullptr, whitespace)) << fromFile.parseError().reason;
        ASSERT_TRUE(fromBytes.loadBytes(text, whitespace));
        ASSERT_EQ(rawText(fromFile.node()), rawText(fromBytes.node()));
        const Node last = fromFile.selectSingleNode("xml/Item[last()]/Comment").node();
        EXPECT_EQ(textOf(last), "one\ntwo");
        EXPECT_EQ(fromFile.lineOf(last),
                  fromBytes.lineOf(fromBytes.selectSingleNode("xml/Item[last()]/Comment").node()));
        EXPECT_EQ(fromFile.lineOf(last),
                  3 * (many - 1) + 2 + (head.find('\n') != std::string::npos));
      }
    }
}

TEST_F(LargeFile, IsRefusedWithTheSamePlaceAsItsBytes) {
  const std::string body = "<xml>" + items(many) + "</xml>";
  for (const std::string& text : {
           body.substr(0, body.size() - 3),
           std::string(body).replace(body.size() / 2, 1, "\x01"),
           std::string(body).replace(body.size() - 100, 1, std::string(1, '\0')),
           "<!DOCTYPE xml [<!ENTITY e SYSTEM 'x'>]>" + body.substr(0, body.size() - 6) +
               "&e;</xml>",
           "<?xml version='1.0' encoding='EBCDIC'?>" + body,
       }) {
    write(text);
    Document fromFile, fromBytes;
    EXPECT_FALSE(fromFile.load(path_));
    EXPECT_FALSE(fromBytes.loadBytes(text));
    EXPECT_EQ(fromFile.parseError().reason, fromBytes.parseError().reason);
    EXPECT_EQ(fromFile.parseError().errorCode, fromBytes.parseError().errorCode);
    EXPECT_FALSE(fromFile.node().first_child());
  }
}

TEST_F(LargeFile, LoadsInEveryEncoding) {
  const std::string body = "<xml>" + items(many) + "</xml>";
  std::string latin;
  for (std::size_t i = 0; i < body.size(); ++i)
    if (body.compare(i, 2, "é") == 0) {
      latin += '\xE9';
      ++i;
    } else {
      latin += body[i];
    }
  write("<?xml version='1.0' encoding='ISO-8859-1'?>" + latin);
  Document document, utf8;
  ASSERT_TRUE(document.load(path_));
  ASSERT_TRUE(utf8.loadXML(body));
  EXPECT_EQ(rawText(document.node()), rawText(utf8.node()));
}

TEST_F(LargeFile, ShrinksWhileItIsReadFromTheFront) {
  write("<xml>" + items(5 * many) + "</xml>");
  Document document;
  ASSERT_TRUE(document.load(path_, nullptr, Whitespace::DropBetweenElements));
  Node root = document.root();
  std::size_t number = 0;
  for (Node item = root.first_child(); item;) {
    const Node next = item.next_sibling();
    ASSERT_EQ(item.attribute("Name").value(), "é number " + std::to_string(number));
    ASSERT_EQ(textOf(item), "one\ntwo");
    ASSERT_EQ(document.lineOf(item), 3 * number + 1);
    document.discard(item);
    item = next;
    ++number;
  }
  EXPECT_EQ(number, 5 * many);
  EXPECT_FALSE(root.first_child());
}

TEST_F(LargeFile, IsFoundByItsAddress) {
  write("<xml/>");
  std::string address = "file://" + path_;
  address.replace(address.find(' '), 1, "%20");
  Document document;
  EXPECT_TRUE(document.load(address)) << document.parseError().reason;
  EXPECT_TRUE(document.load("FILE:" + path_)) << document.parseError().reason;
}

TEST_F(LargeFile, WhatCannotBeReadIsNamed) {
  Document document;
  EXPECT_FALSE(document.load(path_));
  EXPECT_EQ(document.parseError().reason, path_ + ": No such file or directory");
  EXPECT_EQ(document.parseError().errorCode, NotReadable);
  EXPECT_EQ(document.parseError().line, 0u);
  EXPECT_FALSE(document.load(folder_.string()));
  EXPECT_EQ(document.parseError().reason, folder_.string() + ": Is a directory");
  EXPECT_FALSE(document.load(""));
  EXPECT_FALSE(document.load(std::string("/etc/hostname\0x", 15)));
}

TEST_F(LargeFile, APipeIsReadToItsEnd) {
  ASSERT_EQ(::mkfifo(path_.c_str(), 0600), 0);
  const std::string text = "<xml>" + items(many) + "</xml>";
  std::thread writer([&] { write(text); });
  Document document;
  EXPECT_TRUE(document.load(path_)) << document.parseError().reason;
  writer.join();
  EXPECT_EQ(document.root().last_child().previous_sibling().attribute("Name").value(),
            "é number " + std::to_string(many - 1));
}

// A file that another program rewrites meanwhile gives one of its states or an error, never a tree
// that was not judged.
TEST_F(LargeFile, AChangeDuringTheLoadIsNoticed) {
  const std::string good = "<xml>" + std::string(3'000'000, 'a') + "</xml>";
  const std::string bad = "<xml>" + std::string(3'000'000, '&') + "</xml>";
  write(good);
  std::atomic<bool> ended{false};
  std::thread changer([&] {
    std::fstream file(path_, std::ios::in | std::ios::out | std::ios::binary);
    for (bool turn = true; !ended; turn = !turn) {
      file.seekp(0);
      file << (turn ? bad : good) << std::flush;
    }
  });
  unsigned refused = 0;
  for (int i = 0; i < 100; ++i) {
    Document document;
    if (document.load(path_)) {
      const std::string text = textOf(document.root());
      ASSERT_EQ(text.find('&'), std::string::npos);
      ASSERT_EQ(text.size(), 3'000'000u);
    } else {
      ++refused;
      ASSERT_NE(document.parseError().reason, "");
    }
  }
  ended = true;
  changer.join();
  EXPECT_GT(refused, 0u);
}

} // namespace
} // namespace kelmar::xml::testing
