// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The pages of the help hold what the code asks for, in each language.
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>

namespace kelmar {
namespace {

namespace fs = std::filesystem;

const std::string helpFolders[] = {KELMAR_SITE "/doc/kelmar/en/", KELMAR_SITE "/doc/kelmar/fr/"};

struct HelpAddress {
  std::string module, function;
  auto operator<=>(const HelpAddress&) const = default;
};

/// What stands between the parentheses of each call of `help` with arguments.
std::vector<std::string> callsIn(const std::string& code) {
  std::vector<std::string> calls;
  static const std::regex call(R"(emit [\w>.()-]*help\(([^;]+)\);)");
  for (auto at = std::sregex_iterator(code.begin(), code.end(), call); at != std::sregex_iterator();
       ++at)
    if ((*at)[1].str() != ")") calls.push_back((*at)[1]);
  return calls;
}

/// The texts of a call: the first is the module, each other one a function that it may ask for.
std::vector<std::string> textsIn(const std::string& call) {
  std::vector<std::string> texts;
  static const std::regex text("\"([^\"]*)\"");
  for (auto at = std::sregex_iterator(call.begin(), call.end(), text); at != std::sregex_iterator();
       ++at)
    texts.push_back((*at)[1]);
  return texts;
}

std::set<HelpAddress> askedByTheCode() {
  std::set<HelpAddress> asked;
  for (const auto& entry : fs::recursive_directory_iterator(KELMAR_SOURCE "/src")) {
    if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
    for (const std::string& call : callsIn(support::bytesOf(entry.path().string()))) {
      const std::vector<std::string> texts = textsIn(call);
      if (texts.empty()) {
        EXPECT_EQ(call.find(','), call.npos) << entry.path() << ": which page is help(" << call;
        continue;
      }
      EXPECT_GE(texts.size(), 2u) << entry.path() << ": which place is help(" << call;
      for (std::size_t i = 1; i < texts.size(); ++i)
        asked.insert({texts[0], texts[i]});
    }
  }
  return asked;
}

bool hasAnchor(const std::string& page, const std::string& anchor) {
  return page.find("id=\"" + anchor + "\"") != page.npos;
}

/// The names of the pages of a folder, and `page#anchor` for each place in them.
std::set<std::string> placesIn(const std::string& folder) {
  std::set<std::string> places;
  static const std::regex anchor("id=\"([^\"]*)\"");
  for (const auto& entry : fs::directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    const std::string page = support::bytesOf(entry.path().string());
    places.insert(name);
    for (auto at = std::sregex_iterator(page.begin(), page.end(), anchor);
         at != std::sregex_iterator(); ++at)
      places.insert(name + "#" + (*at)[1].str());
  }
  return places;
}

TEST(HelpPages, HaveEveryPageAndPlaceThatTheCodeAsksFor) {
  const std::set<HelpAddress> asked = askedByTheCode();
  EXPECT_TRUE(asked.contains({"data", ""}));
  EXPECT_TRUE(asked.contains({"data", "list"}));
  EXPECT_TRUE(asked.contains({"request", "data"}));
  EXPECT_TRUE(asked.contains({"selector", ""}));
  for (const std::string& folder : helpFolders)
    for (const auto& [module, function] : asked) {
      const std::string file = folder + module + ".htm";
      ASSERT_TRUE(fs::exists(file)) << file;
      EXPECT_TRUE(function.empty() || hasAnchor(support::bytesOf(file), function))
          << file << "#" << function;
    }
}

TEST(HelpPages, AreTheSamePagesWithTheSamePlacesInEachLanguage) {
  for (const std::string& folder : helpFolders)
    EXPECT_EQ(placesIn(folder), placesIn(helpFolders[0])) << folder;
}

TEST(HelpPages, LinksBetweenThemLeadSomewhere) {
  static const std::regex link("href=\"([^\"#:]*)(#([^\"]*))?\"");
  for (const auto& entry : fs::recursive_directory_iterator(KELMAR_SITE "/doc/kelmar")) {
    if (entry.path().extension() != ".htm") continue;
    const std::string page = support::bytesOf(entry.path().string());
    for (auto at = std::sregex_iterator(page.begin(), page.end(), link);
         at != std::sregex_iterator(); ++at) {
      const std::string target = (*at)[1], anchor = (*at)[3];
      const fs::path file = target.empty() ? entry.path() : entry.path().parent_path() / target;
      ASSERT_TRUE(fs::exists(file)) << entry.path() << ": " << at->str();
      EXPECT_TRUE(anchor.empty() || hasAnchor(support::bytesOf(file.string()), anchor))
          << entry.path() << ": " << at->str();
    }
  }
}

} // namespace
} // namespace kelmar
