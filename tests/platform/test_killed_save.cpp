// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files.h"
#include "save_folder.h"
#include "support/temp_folder.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <functional>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace kelmar::platform {
namespace {

using support::bytesOf;

// A child saves over and over and is killed at a random moment. Whatever the moment, the file is
// one of the two contents whole, and the next save clears the rest away.
class KilledSave : public testing::SaveFolder {
 protected:
  struct Moments {
    unsigned oldFile = 0, newFile = 0, midWrite = 0;
  };

  static constexpr unsigned rounds = 300;

  // A slow machine stops after a hundred rounds and 15 seconds.
  void killOften(const std::function<void(const std::string&)>& save, const std::string& saved,
                 Moments& moments) {
    // Different lengths: a mixture of the two could not go unseen.
    const std::string first(300'000, 'a'), second(420'001, 'b');
    std::mt19937 random(20261121);
    const auto start = std::chrono::steady_clock::now();
    for (unsigned round = 0; round < rounds; ++round) {
      const bool firstIsOld = round % 2 == 0;
      const std::string &before = firstIsOld ? first : second, &after = firstIsOld ? second : first;
      // It also clears away what the last kill left. The time that it takes is what the moment is
      // drawn from.
      const auto saveStart = std::chrono::steady_clock::now();
      save(before);
      const auto span = std::chrono::duration_cast<std::chrono::microseconds>(
                            std::chrono::steady_clock::now() - saveStart)
                            .count();
      ASSERT_TRUE(bytesOf(saved) == before);
      for (const std::string& name : names())
        ASSERT_FALSE(name.ends_with(".kelmar-save")) << "not cleared away: " << name;

      int ready[2];
      ASSERT_EQ(::pipe(ready), 0);
      const pid_t child = ::fork();
      if (child == 0) {
        // One byte tells that the first save begins.
        if (::write(ready[1], "x", 1) != 1) ::_exit(2);
        try {
          save(after);
          for (;;)
            ::pause();
        } catch (...) {
        }
        ::_exit(1);
      }
      char byte = 0;
      ASSERT_EQ(::read(ready[0], &byte, 1), 1);
      const auto delay = static_cast<long>(random() % static_cast<unsigned long>(span * 3 / 2 + 1));
      std::this_thread::sleep_for(std::chrono::microseconds(delay));
      ::kill(child, SIGKILL);
      int status = 0;
      ASSERT_EQ(::waitpid(child, &status, 0), child);
      ASSERT_TRUE(WIFSIGNALED(status)) << "the child failed by itself";
      ::close(ready[0]);
      ::close(ready[1]);

      if (bytesOf(saved) == before)
        ++moments.oldFile;
      else if (bytesOf(saved) == after)
        ++moments.newFile;
      else
        FAIL() << "neither the old nor the new file, round " << round;
      const auto left = names();
      if (std::any_of(left.begin(), left.end(),
                      [](const std::string& name) { return name.ends_with(".kelmar-save"); }))
        ++moments.midWrite;
      if (round > 100 && std::chrono::steady_clock::now() - start > std::chrono::seconds(15)) break;
    }
  }
};

TEST_F(KilledSave, LeavesTheOldOrTheNewFileWholeAtAnyMoment) {
  const std::string path = file("a.xml");
  Moments moments;
  killOften([&](const std::string& bytes) { writeWhole(path, bytes); }, path, moments);
  EXPECT_GT(moments.oldFile, 0u);
  EXPECT_GT(moments.newFile, 0u);
  EXPECT_GT(moments.midWrite, 0u);
  RecordProperty("old", static_cast<int>(moments.oldFile));
  RecordProperty("new", static_cast<int>(moments.newFile));
  RecordProperty("mid-write", static_cast<int>(moments.midWrite));
}

TEST_F(KilledSave, LeavesTheOldOrTheNewBackupWholeAtAnyMoment) {
  const std::string backup = file("a.xml.bak");
  // Ready before, so that only the copy is killed.
  writeWhole(file("first"), std::string(300'000, 'a'));
  writeWhole(file("second"), std::string(420'001, 'b'));
  Moments moments;
  killOften(
      [&](const std::string& bytes) {
        copyWhole(file(bytes.front() == 'a' ? "first" : "second"), backup);
      },
      backup, moments);
  EXPECT_GT(moments.oldFile, 0u);
  EXPECT_GT(moments.newFile, 0u);
  EXPECT_GT(moments.midWrite, 0u);
  EXPECT_TRUE(bytesOf(file("first")) == std::string(300'000, 'a'));
  EXPECT_TRUE(bytesOf(file("second")) == std::string(420'001, 'b'));
}

} // namespace
} // namespace kelmar::platform
