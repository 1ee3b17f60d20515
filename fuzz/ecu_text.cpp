// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/ecu_text.h"

#include "base/failure.h"

#include <algorithm>
#include <cstdlib>
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

} // namespace

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

} // namespace kelmar::fuzz
