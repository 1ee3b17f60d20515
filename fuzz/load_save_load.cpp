// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/load_save_load.h"

#include "base/failure.h"
#include "database/omnikor_lib_xml.h"
#include "platform/person.h"
#include "xml/encoding.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <optional>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace kelmar::fuzz {

namespace {

constexpr char address[] = "http://localhost/ecu.xml";

/// Gives the input to the load, which then needs no file.
class GivenFile final : public platform::Fetch {
 public:
  explicit GivenFile(std::string_view file) : file_(file) {}
  std::string get(const std::string&) override { return std::string(file_); }

 private:
  std::string_view file_;
};

class FixedClock final : public platform::Clock {
 public:
  DateTime localNow() const override { return {2026, 1, 15, 8, 30, 0}; }
};

/// Answers OK to the question about files of the sibling tool.
class WillingPerson final : public platform::Person {
 public:
  platform::Answer message(const platform::Box&) override { return platform::Answer::Ok; }
  std::optional<std::string> file(const platform::FileQuestion&) override { return std::nullopt; }
};

#ifdef KELMAR_PLANTED_FAULT
// Counts behind the end of a table for a diagnostic version larger than that of any sample.
int commonestVersion(const OmnikorLibXml& database) {
  std::vector<int> counts(1'000);
  for (const AutoIdentItem* ident : *database.ActiveTarget->AutoIdents)
    if (ident->DiagNumber > 0) ++counts.data()[ident->DiagNumber];
  return *std::max_element(counts.begin(), counts.end());
}
#endif

bool hasLoneReturn(const std::string& text) {
  for (std::size_t at = text.find('\r'); at != std::string::npos; at = text.find('\r', at + 1))
    if (text[at + 1] != '\n') return true;
  return false;
}

/// What the format writes and does not read back, on purpose: only then may the second save differ
/// from the first. The list is in docs/file-format.md.
bool losesByWriting(const TargetItem& target) {
  const TargetParamItem& parameters = *target.Parametres();
  if (!target.reference() || parameters.initMode == 0) return true;
  if (parameters.TypePanneId() == 0 && parameters.TypePanne() == "Ne contient pas de pannes")
    return true;
  if (parameters.initMode == 3) {
    const FunctionItem* function = target.parent->functions->ItemAddress(target.Address());
    if (function && function->canXid == -1) return true;
  }
  // A carriage return stands raw in CDATA and comes back as a line feed.
  if (hasLoneReturn(parameters.Comment)) return true;
  for (const DataItem* data : *target.datas())
    if (hasLoneReturn(data->Description) || data->Fiche.find('\r') != std::string::npos)
      return true;
  for (const RequestItem* request : *target.Requests())
    if (hasLoneReturn(request->Commentaire)) return true;
  for (const CategoryItem* category : *target.Categories)
    for (const ScreenItem* screen : *category->Screens)
      if (screen->ButtonInit && !screen->ButtonInit->Message.empty()) return true;
  return false;
}

/// A database with one file in it, or none when the load was refused.
std::unique_ptr<OmnikorLibXml> loaded(platform::Fetch* fetch, const std::string& url) {
  static const FixedClock clock;
  static WillingPerson person;
  auto database =
      std::make_unique<OmnikorLibXml>(OmnikorLibXml::Machine{fetch, &person, &clock}, "en");
  try {
    database->ImportUceFromXml(url);
  } catch (const Failure&) {
    return nullptr;
  }
#ifdef KELMAR_PLANTED_FAULT
  if (commonestVersion(*database) < 0) std::abort();
#endif
  return database;
}

std::unique_ptr<OmnikorLibXml> loaded(std::string_view file) {
  GivenFile given(file);
  return loaded(&given, address);
}

std::optional<std::string> saved(OmnikorLibXml& database, const char* encoding) {
  database.xmlEncoding = encoding;
  try {
    return database.ecuFileBytes();
  } catch (const Failure&) {
    return std::nullopt;
  }
}

std::string differenceOf(const char* what, const std::string& left, const std::string& right) {
  const auto at = static_cast<std::size_t>(
      std::mismatch(left.begin(), left.end(), right.begin(), right.end()).first - left.begin());
  const std::size_t from = at < 60 ? 0 : at - 60;
  return std::string(what) + " at byte " + std::to_string(at) + ":\n  " + left.substr(from, 160) +
         "\nagainst\n  " + right.substr(from, 160);
}

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
