// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "save_folder.h"

#include <cstdlib>
#include <ctime>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace kelmar::platform {
namespace {

namespace fs = std::filesystem;

class Files : public testing::SaveFolder {
 protected:
  std::string make(const std::string& name, const std::string& bytes) const {
    std::ofstream(file(name), std::ios::binary) << bytes;
    return file(name);
  }
};

TEST_F(Files, ReadsAllBytes) {
  const std::string bytes = std::string("a\0b\r\n\xFF", 6) + std::string(300'000, 'x');
  EXPECT_EQ(readFile(make("a", bytes)), bytes);
  EXPECT_EQ(readFile(make("empty", "")), "");
  EXPECT_FALSE(readFile("/proc/self/status").empty()) << "a file that tells no size";
}

TEST_F(Files, ReadsAPipeToItsEnd) {
  ASSERT_EQ(::mkfifo(file("pipe").c_str(), 0600), 0);
  const std::string bytes(200'000, 'p');
  std::thread writer([&] { make("pipe", bytes); });
  EXPECT_EQ(readFile(file("pipe")), bytes);
  writer.join();
}

TEST_F(Files, NamesPathAndReasonOfAFailedRead) {
  const auto failureOf = [](const std::string& path) {
    try {
      readFile(path);
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.number, FileAccessFailed);
      return failure.text;
    }
    return std::string();
  };
  EXPECT_EQ(failureOf(file("none")), file("none") + ": No such file or directory");
  EXPECT_EQ(failureOf(folder().string()), folder().string() + ": Is a directory");
  EXPECT_NE(failureOf(""), "");
  EXPECT_NE(failureOf(std::string("/etc/hostname\0x", 15)), "");
}

TEST_F(Files, ReadsNoMoreOfTheHeadThanAsked) {
  const std::string path = make("a", "0123456789");
  EXPECT_EQ(readHead(path, 4), "0123");
  EXPECT_EQ(readHead(path, 10), "0123456789");
  EXPECT_EQ(readHead(path, 1'000'000), "0123456789");
  EXPECT_EQ(readHead(path, 0), "");
  EXPECT_THROW(readHead(file("none"), 4), Failure);
  const std::string large(200'000, 'x');
  EXPECT_EQ(readHead(make("large", large), 150'000).size(), 150'000u);
}

TEST_F(Files, TellsFilesFromFolders) {
  make("a", "");
  fs::create_symlink("a", file("link"));
  fs::create_symlink("none", file("dangling"));
  fs::create_directory(file("d"));
  EXPECT_TRUE(fileExists(file("a")));
  EXPECT_TRUE(fileExists(file("link")));
  EXPECT_FALSE(fileExists(file("dangling")));
  EXPECT_FALSE(fileExists(file("d")));
  EXPECT_FALSE(fileExists(""));
  EXPECT_TRUE(folderExists(file("d")));
  EXPECT_FALSE(folderExists(file("a")));
  EXPECT_FALSE(folderExists(""));
}

TEST_F(Files, ReadOnlyIsAMatterOfTheModeAlone) {
  const std::string path = make("a", "");
  for (const auto& [mode, readOnly] :
       {std::pair{0444u, true}, {0555u, true}, {0644u, false}, {0464u, false}, {0446u, false}}) {
    ASSERT_EQ(::chmod(path.c_str(), mode), 0);
    EXPECT_EQ(isReadOnly(path), readOnly) << std::oct << mode;
  }
  EXPECT_FALSE(isReadOnly(file("none")));
}

TEST(Paths, AreJoinedWithOneSeparator) {
  EXPECT_EQ(joinPath("/a", "b"), "/a/b");
  EXPECT_EQ(joinPath("/a//", "//b"), "/a/b");
  EXPECT_EQ(joinPath("/", "b"), "/b");
  EXPECT_EQ(joinPath("", "b"), "b");
  EXPECT_EQ(joinPath("a", ""), "a/");
}

TEST(Paths, AreSplitAtTheLastSeparator) {
  EXPECT_EQ(fileNameOf("/a/b.xml"), "b.xml");
  EXPECT_EQ(fileNameOf("b.xml"), "b.xml");
  EXPECT_EQ(fileNameOf("/a/"), "");
  EXPECT_EQ(folderOf("/a/b.xml"), "/a");
  EXPECT_EQ(folderOf("/b.xml"), "/");
  EXPECT_EQ(folderOf("b.xml"), "");
}

TEST(Paths, BecomeAbsoluteWithoutDots) {
  const std::string here = fs::current_path().string();
  EXPECT_EQ(absolutePath("a/./b/../c.xml"), joinPath(here, "a/c.xml"));
  EXPECT_EQ(absolutePath("/a/../../b"), "/b");
  EXPECT_EQ(absolutePath("/a/b/"), "/a/b");
  EXPECT_EQ(absolutePath("/"), "/");
  EXPECT_EQ(absolutePath(""), here);
}

TEST_F(Files, AbsolutePathsKeepLinks) {
  fs::create_directory(file("d"));
  fs::create_symlink("d", file("link"));
  EXPECT_EQ(absolutePath(file("link/a.xml")), file("link/a.xml"));
}

TEST(Paths, OfFileAddresses) {
  EXPECT_EQ(localPathOf("file:///a%20b/%C3%A9.xml"), "/a b/é.xml");
  EXPECT_EQ(localPathOf("file:/a"), "/a");
  EXPECT_EQ(localPathOf("FILE://localhost/a"), "/a");
  EXPECT_EQ(localPathOf("file:a%41"), "aA");
  EXPECT_EQ(localPathOf("file:///a%2"), "/a%2");
  EXPECT_EQ(localPathOf("file:///a%zz"), "/a%zz");
  for (const char* same :
       {"/a%20b", "http://h/a%20b", "a", "", "file:", "file://", "file://host/a", "file:///a%00b"})
    EXPECT_EQ(localPathOf(same), same);
}

TEST_F(Files, FolderChainsAreMadeFromTheTop) {
  CreateFolderChain(folder().string() + "/", "a\\b/c");
  EXPECT_TRUE(folderExists(file("a/b/c")));
  CreateFolderChain(folder().string() + "/", "a\\b/c");
  make("f", "");
  CreateFolderChain(folder().string() + "/", "f/g"); // cannot be; says nothing
  EXPECT_TRUE(fileExists(file("f")));
  CreateFolderChain("", "");
}

class MachineClock : public ::testing::Test {
 protected:
  void TearDown() override { ::unsetenv("KELMAR_CLOCK"); }
};

TEST_F(MachineClock, StandsStillWhereTheEnvironmentSaysSo) {
  ::setenv("KELMAR_CLOCK", "2026-01-02T03:04", 1);
  EXPECT_EQ(machineClock().localNow(), (DateTime{2026, 1, 2, 3, 4, 0}));
  EXPECT_EQ(machineClock().localNow(), (DateTime{2026, 1, 2, 3, 4, 0}));
}

TEST_F(MachineClock, IsThatOfTheMachineElse) {
  for (const char* fixed : {"", "no date"}) {
    ::setenv("KELMAR_CLOCK", fixed, 1);
    const std::time_t before = std::time(nullptr);
    const DateTime now = machineClock().localNow();
    std::tm fields{};
    fields.tm_year = now.year - 1900;
    fields.tm_mon = now.month - 1;
    fields.tm_mday = now.day;
    fields.tm_hour = now.hour;
    fields.tm_min = now.minute;
    fields.tm_sec = now.second;
    fields.tm_isdst = -1;
    EXPECT_GE(std::mktime(&fields), before);
    EXPECT_LE(std::mktime(&fields), std::time(nullptr));
  }
}

} // namespace
} // namespace kelmar::platform
