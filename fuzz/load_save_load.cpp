// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/load_save_load.h"

#include "fuzz/ecu_text.h"
#include "xml/encoding.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <sys/mman.h>
#include <unistd.h>

namespace kelmar::fuzz {

namespace {

/// A file in memory with a path of its own.
class MemoryFile {
 public:
  explicit MemoryFile(std::string_view bytes) : descriptor_(::memfd_create("ecu", MFD_CLOEXEC)) {
    if (descriptor_ < 0) std::abort();
    while (!bytes.empty()) {
      const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
      if (written <= 0) std::abort();
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  ~MemoryFile() { ::close(descriptor_); }
  std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

 private:
  int descriptor_;
};

} // namespace

Outcome loadSaveLoad(std::string_view file) {
  const auto first = loaded(file);
  if (!first) return {Outcome::Kind::LoadRefused, {}, {}};
  const bool losesSomething = losesByWriting(*first->ActiveTarget);
  const auto firstSave = saved(*first, "UTF-8");
  if (!firstSave) return {Outcome::Kind::SaveRefused, {}, {}};

  Outcome outcome{Outcome::Kind::RoundTrip, *firstSave, {}};
  std::string previous = *firstSave;
  for (const char* which : {"second", "third"}) {
    const auto again = loaded(previous);
    const auto nextSave = again ? saved(*again, "UTF-8") : std::nullopt;
    if (!nextSave) {
      outcome.brokenPromise = std::string("no ") + which + " save, of this file:\n" + previous;
      return outcome;
    }
    if (*nextSave != previous && (!losesSomething || previous != *firstSave)) {
      outcome.brokenPromise = differenceOf((std::string("the ") + which + " save differs").c_str(),
                                           previous, *nextSave);
      return outcome;
    }
    previous = *nextSave;
  }

  // Another encoding may refuse a character; where it does not, the content is the same.
  static constexpr const char* others[] = {"UTF-16", "ISO-8859-1", "windows-1252"};
  const char* const encoding = others[file.size() % std::size(others)];
  const auto settled = loaded(previous);
  const auto otherSave = saved(*settled, encoding);
  if (!otherSave) return outcome;
  const auto other = loaded(*otherSave);
  const auto back = other ? saved(*other, "UTF-8") : std::nullopt;
  if (!back) {
    outcome.brokenPromise = std::string("what was saved as ") + encoding + " is refused";
  } else if (*back != previous) {
    outcome.brokenPromise =
        differenceOf((std::string(encoding) + " changes the content").c_str(), previous, *back);
  }
  return outcome;
}

std::string largeLoadDiffers(std::string_view file) {
  // Only UTF-8 is read in the way of large files.
  const xml::DetectedEncoding found = xml::detectEncoding(file.substr(0, 1024));
  if (!found.error.empty() || found.encoding != xml::Encoding::Utf8) return {};

  const auto small = loaded(file);
  std::string padded(file);
  padded.resize(std::max<std::size_t>(padded.size(), 1u << 20) + 1, '\n');
  const MemoryFile memory(padded);
  const auto large = loaded(nullptr, memory.path());
  if (!small != !large) return small ? "refused only when large" : "refused only when small";
  if (!small) return {};
  const auto smallSave = saved(*small, "UTF-8"), largeSave = saved(*large, "UTF-8");
  if (smallSave.has_value() != largeSave.has_value()) return "only one of the two can be saved";
  if (smallSave && *smallSave != *largeSave)
    return differenceOf("the large file gives another model", *smallSave, *largeSave);
  return {};
}

} // namespace kelmar::fuzz
