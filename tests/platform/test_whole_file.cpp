// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "platform/files.h"
#include "save_folder.h"
#include "support/temp_folder.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace kelmar::platform {
namespace {

namespace fs = std::filesystem;
using support::bytesOf;

class WholeFile : public testing::SaveFolder {};

mode_t modeOf(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

// The text of the failure; empty when there was none.
template <class Action>
std::string failureOf(Action action) {
  try {
    action();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number, FileAccessFailed);
    return failure.text;
  }
  return {};
}

// Runs the check in a child that is no longer root. What the child prints reaches the test's
// output; it ends with 0 when the check is true.
template <class Check>
bool asPlainUser(Check check) {
  const pid_t child = ::fork();
  if (child == 0) {
    if (::geteuid() == 0 &&
        (::setgroups(0, nullptr) != 0 || ::setgid(65534) != 0 || ::setuid(65534) != 0))
      ::_exit(3);
    bool held = false;
    try {
      held = check();
    } catch (...) {
    }
    ::_exit(held ? 0 : 1);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST_F(WholeFile, ReplacesTheContentAndLeavesNothingElse) {
  const std::string path = file("a.xml");
  writeWhole(path, "first");
  EXPECT_EQ(readFile(path), "first");
  writeWhole(path, "second, which is longer");
  EXPECT_EQ(readFile(path), "second, which is longer");
  writeWhole(path, "");
  EXPECT_EQ(readFile(path), "");
  std::string large(5'000'001, 'x');
  large[4'000'000] = '\0';
  writeWhole(path, large);
  EXPECT_TRUE(bytesOf(path) == large);
  EXPECT_EQ(names(), std::vector<std::string>{"a.xml"});
}

TEST_F(WholeFile, KeepsTheModeAndGivesNewFilesThatOfTheUmask) {
  const mode_t before = ::umask(027);
  const std::string path = file("a.xml");
  writeWhole(path, "1");
  EXPECT_EQ(modeOf(path), 0640u);
  for (const mode_t mode : {0600u, 0644u, 0755u, 0666u}) {
    ASSERT_EQ(::chmod(path.c_str(), mode), 0);
    writeWhole(path, "2");
    EXPECT_EQ(modeOf(path), mode);
  }
  ::umask(before);
}

TEST_F(WholeFile, KeepsTheOwnerWhereTheSaverMayGiveFilesAway) {
  if (::geteuid() != 0) {
    // A plain user owns what he saves; that is all there is to see.
    writeWhole(file("a.xml"), "1");
    struct stat status {};
    ASSERT_EQ(::stat(file("a.xml").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, ::geteuid());
    return;
  }
  const std::string path = file("a.xml");
  writeWhole(path, "1");
  ASSERT_EQ(::chown(path.c_str(), 65534, 65534), 0);
  writeWhole(path, "2");
  struct stat status {};
  ASSERT_EQ(::stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 65534u);
  EXPECT_EQ(status.st_gid, 65534u);
}

TEST_F(WholeFile, KeepsSymbolicLinks) {
  fs::create_directory(file("deep"));
  writeWhole(file("deep/target.xml"), "old");
  fs::create_symlink("deep/target.xml", file("relative.xml"));
  fs::create_symlink(file("deep/target.xml"), file("absolute.xml"));
  fs::create_symlink("relative.xml", file("chain.xml"));
  fs::create_symlink("../relative.xml", file("deep/up.xml"));
  for (const char* link : {"relative.xml", "absolute.xml", "chain.xml", "deep/up.xml"}) {
    writeWhole(file(link), link);
    EXPECT_TRUE(fs::is_symlink(file(link))) << link;
    EXPECT_EQ(readFile(file("deep/target.xml")), link);
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(file("deep")), {}), 2);
}

TEST_F(WholeFile, ADanglingLinkGetsItsFile) {
  fs::create_symlink("not-yet.xml", file("link.xml"));
  writeWhole(file("link.xml"), "made");
  EXPECT_TRUE(fs::is_symlink(file("link.xml")));
  EXPECT_EQ(readFile(file("not-yet.xml")), "made");
  fs::create_symlink("no-folder/a.xml", file("nowhere.xml"));
  EXPECT_EQ(failureOf([&] { writeWhole(file("nowhere.xml"), "x"); }),
            file("nowhere.xml") + ": No such file or directory");
  fs::create_symlink("circle.xml", file("circle.xml"));
  EXPECT_EQ(failureOf([&] { writeWhole(file("circle.xml"), "x"); }),
            file("circle.xml") + ": Too many levels of symbolic links");
}

TEST_F(WholeFile, RefusesWhatIsNoFile) {
  fs::create_directory(file("folder"));
  EXPECT_EQ(failureOf([&] { writeWhole(file("folder"), "x"); }),
            file("folder") + ": Is a directory");
  EXPECT_NE(failureOf([&] { writeWhole(file("folder/"), "x"); }), "");
  EXPECT_NE(failureOf([&] { writeWhole("", "x"); }), "");
  EXPECT_NE(failureOf([&] { writeWhole(file(std::string("a\0b", 3)), "x"); }), "");
  ASSERT_EQ(::mkfifo(file("pipe").c_str(), 0600), 0);
  EXPECT_EQ(failureOf([&] { writeWhole(file("pipe"), "x"); }),
            file("pipe") + ": not a regular file");
  EXPECT_EQ(failureOf([&] { writeWhole(file("none/a.xml"), "x"); }),
            file("none/a.xml") + ": No such file or directory");
  EXPECT_EQ(failureOf([&] { writeWhole(file(std::string(256, 'n')), "x"); }),
            file(std::string(256, 'n')) + ": File name too long");
  EXPECT_EQ(names(), (std::vector<std::string>{"folder", "pipe"}));
}

TEST_F(WholeFile, ALongNameSavesToo) {
  const std::string path = file(std::string(255, 'n'));
  writeWhole(path, "1");
  writeWhole(path, "2");
  EXPECT_EQ(readFile(path), "2");
  EXPECT_EQ(names().size(), 1u);
}

TEST_F(WholeFile, RefusesAReadOnlyFileWhoeverAsks) {
  const std::string path = file("a.xml");
  writeWhole(path, "old");
  ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
  EXPECT_TRUE(isReadOnly(path));
  const std::string expected = path + ": the file is read only";
  EXPECT_EQ(failureOf([&] { writeWhole(path, "new"); }), expected);
  EXPECT_TRUE(asPlainUser([&] {
    return failureOf([&] { writeWhole(path, "new"); }) == expected && readFile(path) == "old";
  }));
  EXPECT_EQ(readFile(path), "old");
  EXPECT_EQ(names().size(), 1u);
}

TEST_F(WholeFile, RefusesAFileOfSomebodyElse) {
  const std::string path = file("a.xml");
  writeWhole(path, "old");
  // In a folder where all may write, a rename could replace it.
  ASSERT_EQ(::chmod(folder().c_str(), 0777), 0);
  if (::geteuid() != 0) {
    ASSERT_EQ(::chmod(path.c_str(), 0464), 0) << "as if somebody else's";
    EXPECT_EQ(failureOf([&] { writeWhole(path, "new"); }), path + ": Permission denied");
  } else {
    ASSERT_EQ(::chmod(path.c_str(), 0644), 0);
    EXPECT_TRUE(asPlainUser([&] {
      return failureOf([&] { writeWhole(path, "new"); }) == path + ": Permission denied";
    }));
  }
  ASSERT_EQ(::chmod(path.c_str(), 0644), 0);
  EXPECT_EQ(readFile(path), "old");
}

TEST_F(WholeFile, RefusesAReadOnlyFolder) {
  const std::string path = file("a.xml"), fresh = file("new.xml");
  writeWhole(path, "old");
  ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
  ASSERT_EQ(::chmod(folder().c_str(), 0555), 0);
  EXPECT_TRUE(asPlainUser([&] {
    return failureOf([&] { writeWhole(path, "new"); }) == path + ": Permission denied" &&
           failureOf([&] { writeWhole(fresh, "new"); }) == fresh + ": Permission denied" &&
           failureOf([&] { copyWhole(path, fresh); }) == fresh + ": Permission denied";
  }));
  ASSERT_EQ(::chmod(folder().c_str(), 0755), 0);
  EXPECT_EQ(readFile(path), "old");
  EXPECT_EQ(names(), std::vector<std::string>{"a.xml"});
}

TEST_F(WholeFile, AFullDiskLeavesTheOldFileWhole) {
  const std::string disk = file("disk");
  fs::create_directory(disk);
  const std::string path = disk + "/a.xml", other = file("large.xml");
  const std::string old(10'000, 'o'), large(200'000, 'n');
  writeWhole(other, large);
  const bool mounted = ::mount("none", disk.c_str(), "tmpfs", 0, "size=64k") == 0;
  writeWhole(path, old);
  std::string write, copy;
  if (mounted) {
    write = failureOf([&] { writeWhole(path, large); });
    copy = failureOf([&] { copyWhole(other, path); });
  } else {
    // No disk of our own to fill: a limit on the size of files ends the write in the same place.
    rlimit before{}, tight{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    tight = before;
    tight.rlim_cur = 65536;
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tight), 0);
    write = failureOf([&] { writeWhole(path, large); });
    copy = failureOf([&] { copyWhole(other, path); });
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
  }
  const std::string reason = mounted ? ": No space left on device" : ": File too large";
  EXPECT_EQ(write, path + reason);
  EXPECT_EQ(copy, path + reason);
  EXPECT_TRUE(bytesOf(path) == old);
  EXPECT_EQ(std::distance(fs::directory_iterator(disk), {}), 1) << "a temporary file was left";
  // There is room for a small one still.
  EXPECT_EQ(failureOf([&] { writeWhole(path, "small"); }), "");
  if (mounted) {
    EXPECT_EQ(::umount(disk.c_str()), 0);
  }
}

TEST_F(WholeFile, ClearsAwayWhatACrashLeft) {
  const std::string path = file("a.xml");
  const auto leave = [&](const std::string& name) { std::ofstream(file(name)) << "half"; };
  leave(".a.xml.4711-0.kelmar-save");
  leave(".a.xml.99-12.kelmar-save");
  leave(".a.xml.old.4711-0.kelmar-save"); // of a file "a.xml.old"
  leave(".b.xml.4711-0.kelmar-save");
  leave(".a.xml.notes.kelmar-save");
  fs::create_symlink(file("elsewhere"), file(".a.xml.1-1.kelmar-save"));
  leave("elsewhere");
  writeWhole(path, "new");
  EXPECT_EQ(names(), (std::vector<std::string>{".a.xml.1-1.kelmar-save", ".a.xml.notes.kelmar-save",
                                               ".a.xml.old.4711-0.kelmar-save",
                                               ".b.xml.4711-0.kelmar-save", "a.xml", "elsewhere"}));
}

TEST_F(WholeFile, LeavesAloneWhatAnotherSaverWritesNow) {
  const std::string name = ".a.xml.4711-0.kelmar-save";
  const int other = ::open(file(name).c_str(), O_RDWR | O_CREAT, 0600);
  ASSERT_GE(other, 0);
  ASSERT_EQ(::flock(other, LOCK_EX), 0);
  writeWhole(file("a.xml"), "1");
  EXPECT_TRUE(fileExists(file(name)));
  ::close(other);
  writeWhole(file("a.xml"), "2");
  EXPECT_FALSE(fileExists(file(name)));
}

TEST_F(WholeFile, ManySaversAtOnceLeaveOneOfTheirFilesWhole) {
  const std::string path = file("a.xml");
  std::vector<std::string> contents;
  for (char c = 'a'; c < 'e'; ++c)
    contents.push_back(std::string(100'000 + static_cast<std::size_t>(c), c));
  std::vector<pid_t> children;
  for (const std::string& content : contents) {
    const pid_t child = ::fork();
    if (child == 0) {
      try {
        for (int i = 0; i < 50; ++i)
          writeWhole(path, content);
      } catch (...) {
        ::_exit(1);
      }
      ::_exit(0);
    }
    children.push_back(child);
  }
  std::vector<std::thread> threads;
  for (int t = 0; t < 2; ++t)
    threads.emplace_back([&] {
      for (int i = 0; i < 50; ++i)
        writeWhole(path, contents[0]);
    });
  const auto whole = [&] {
    const std::string found = readFile(path);
    return std::find(contents.begin(), contents.end(), found) != contents.end();
  };
  for (int i = 0; i < 200; ++i)
    ASSERT_TRUE(!fileExists(path) || whole());
  for (std::thread& thread : threads)
    thread.join();
  for (const pid_t child : children) {
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  }
  EXPECT_TRUE(whole());
  EXPECT_EQ(names(), std::vector<std::string>{"a.xml"});
}

TEST_F(WholeFile, CopiesOverAnExistingFileWithTheModeOfTheSource) {
  const std::string from = file("a.xml"), to = file("a.xml.bak");
  std::string large(3'000'000, 'x');
  large[2'500'000] = 'y';
  writeWhole(from, large);
  ASSERT_EQ(::chmod(from.c_str(), 0600), 0);
  copyWhole(from, to);
  EXPECT_TRUE(bytesOf(to) == large);
  EXPECT_EQ(modeOf(to), 0600u) << "a private file has a private copy";
  writeWhole(from, "short");
  copyWhole(from, to);
  EXPECT_EQ(readFile(to), "short");
  EXPECT_EQ(names(), (std::vector<std::string>{"a.xml", "a.xml.bak"}));
  // The copy of a read-only file can be replaced by the next one.
  ASSERT_EQ(::chmod(from.c_str(), 0444), 0);
  fs::remove(to);
  copyWhole(from, to);
  EXPECT_EQ(modeOf(to), 0644u);
  copyWhole(from, to);
}

TEST_F(WholeFile, ACopyOfNothingFailsAndLeavesTheTarget) {
  writeWhole(file("b"), "kept");
  EXPECT_EQ(failureOf([&] { copyWhole(file("a"), file("b")); }),
            file("a") + ": No such file or directory");
  EXPECT_EQ(failureOf([&] { copyWhole(folder().string(), file("b")); }),
            folder().string() + ": Is a directory");
  EXPECT_EQ(failureOf([&] { copyWhole("/dev/null", file("b")); }), "/dev/null: not a regular file");
  EXPECT_EQ(readFile(file("b")), "kept");
}

} // namespace
} // namespace kelmar::platform
