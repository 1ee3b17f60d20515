// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <regex>
#include <set>

namespace kelmar::testing {
namespace {

namespace fs = std::filesystem;

std::string sample(const std::string& name) {
  return support::bytesOf(KELMAR_TEST_DATA "/good/" + name);
}

/// A file of the site of a middling size.
std::string siteFile() {
  fs::path chosen;
  for (const auto& entry : fs::recursive_directory_iterator(KELMAR_SITE "/vehicles")) {
    if (entry.path().extension() != ".xml" || entry.file_size() < 20'000) continue;
    if (chosen.empty() || entry.file_size() < fs::file_size(chosen)) chosen = entry.path();
  }
  return support::bytesOf(chosen.string());
}

/// Loads whatever it is. A failure must say what is wrong, and must not be saved; a success must be
/// saved, or say what cannot be, and what was saved must come back and stay as it is.
/// Gives "malformed", "failed", "unsavable" or "kept".
std::string outcomeOf(Ecu& ecu, const std::string& text) {
  ecu.db.functions.reset();
  const std::string failure = ecu.failureOfLoad(text);
  if (!failure.empty()) {
    EXPECT_NE(Ecu::failureOf([&] { ecu.saved(); }), "");
    EXPECT_FALSE(failure.ends_with(": ")) << failure;
    if (failure.find("Reason=") == std::string::npos) return "failed";
    EXPECT_NE(failure.find(", line "), std::string::npos) << failure;
    EXPECT_NE(failure.find(", column "), std::string::npos) << failure;
    return "malformed";
  }
  std::string first, second;
  const std::string refusal = Ecu::failureOf([&] { first = ecu.saved(); });
  if (!refusal.empty()) {
    EXPECT_FALSE(refusal.ends_with(": ")) << refusal;
    return "unsavable";
  }
  ecu.load(first);
  second = ecu.saved();
  ecu.load(second);
  EXPECT_TRUE(ecu.saved() == second) << "the second save is not the third";
  return "kept";
}

TEST(BrokenEcuFiles, FailOrLoadAsTheirIndexSays) {
  std::ifstream index(KELMAR_TEST_DATA "/broken/ecu-index.txt");
  std::set<std::string> listed;
  for (std::string line; std::getline(index, line);) {
    const std::vector<std::string> cells = split(line, "\t");
    ASSERT_EQ(cells.size(), 5u) << line;
    SCOPED_TRACE(cells[0] + ": " + cells[4]);
    listed.insert(cells[0]);
    const std::string text = support::bytesOf(KELMAR_TEST_DATA "/broken/" + cells[0]);
    Ecu ecu;
    const std::string failure = ecu.failureOfLoad(text);
    if (cells[1] == "fails") {
      EXPECT_TRUE(failure.starts_with(cells[2] + " ") && failure.ends_with(": " + cells[3]))
          << failure;
    } else {
      EXPECT_EQ(failure, "");
      EXPECT_EQ(std::to_string(ecu.db.report().size()), cells[2]) << ecu.report();
      EXPECT_EQ(outcomeOf(ecu, text), "kept");
    }
  }
  std::set<std::string> found;
  for (const auto& entry : fs::directory_iterator(KELMAR_TEST_DATA "/broken")) {
    const std::string name = entry.path().filename().string();
    if (name.starts_with("ecu-") && name.ends_with(".xml")) found.insert(name);
  }
  EXPECT_EQ(listed, found);
}

TEST(BrokenEcuFiles, CutAtEvery100thByteAreMalformedWithAPlace) {
  Ecu ecu;
  const std::string whole = siteFile();
  for (std::size_t length = 0; length + 8 < whole.size(); length += 100)
    ASSERT_EQ(outcomeOf(ecu, whole.substr(0, length)), "malformed") << "at byte " << length;
}

TEST(BrokenEcuFiles, WithFlippedBitsFailClearlyOrLoad) {
  constexpr unsigned seed = 99;
  std::mt19937 random(seed);
  Ecu ecu;
  std::map<std::string, int> outcomes;
  for (const std::string& whole :
       {sample("screens.xml"), sample("devices-and-tests.xml"), sample("latin1.xml")}) {
    for (int i = 0; i < 120; ++i) {
      std::string text = whole;
      const std::size_t at = random() % text.size();
      const unsigned bit = random() % 8;
      text[at] = static_cast<char>(static_cast<unsigned char>(text[at]) ^ (1u << bit));
      SCOPED_TRACE("seed " + std::to_string(seed) + ": bit " + std::to_string(bit) + " of byte " +
                   std::to_string(at));
      ++outcomes[outcomeOf(ecu, text)];
    }
  }
  EXPECT_GT(outcomes["malformed"], 50);
  EXPECT_GT(outcomes["kept"], 50);
}

const char* const richSamples[] = {"all-of-the-target.xml", "screens.xml",
                                   "devices-and-tests.xml", "requests.xml",
                                   "coefficients.xml",      "kwp-5-baud-type-2.xml"};

/// The text with each match of the pattern replaced in turn.
template <class Use>
void withEach(const std::string& text, const char* pattern, const std::string& replacement,
              Use use) {
  const std::regex expression(pattern);
  std::size_t count = 0;
  for (auto match = std::sregex_iterator(text.begin(), text.end(), expression);
       match != std::sregex_iterator(); ++match, ++count) {
    std::string changed = text;
    changed.replace(static_cast<std::size_t>(match->position()),
                    static_cast<std::size_t>(match->length()), match->format(replacement));
    SCOPED_TRACE("changed " + match->str() + " at byte " + std::to_string(match->position()));
    use(changed);
  }
  EXPECT_GT(count, 10u);
}

TEST(BrokenEcuFiles, WithoutAnyOneAttributeFailClearlyOrLoad) {
  Ecu ecu;
  std::map<std::string, int> outcomes;
  for (const char* name : richSamples)
    withEach(sample(name), " [A-Za-z]+=\"[^\"]*\"", "",
             [&](const std::string& text) { ++outcomes[outcomeOf(ecu, text)]; });
  // Names of the target and of its function, the attributes of an AutoIdent, the declaration's.
  EXPECT_GT(outcomes["failed"], 10);
  EXPECT_GT(outcomes["kept"], 300);
  EXPECT_EQ(outcomes["unsavable"], 0);
}

TEST(BrokenEcuFiles, WithoutAnyOneEmptyElementFailClearlyOrLoad) {
  Ecu ecu;
  std::map<std::string, int> outcomes;
  for (const char* name : richSamples)
    withEach(sample(name), "<[A-Za-z0-9_]+( [^<>]*)?/>", "",
             [&](const std::string& text) { ++outcomes[outcomeOf(ecu, text)]; });
  EXPECT_GT(outcomes["kept"], 100);
  EXPECT_EQ(outcomes["malformed"], 0);
}

TEST(BrokenEcuFiles, WithAnyOneOddValueFailClearlyOrLoad) {
  Ecu ecu;
  std::map<std::string, int> outcomes;
  for (const char* value : {"", "x", "99999999999", "-1"}) {
    withEach(sample("all-of-the-target.xml"), " ([A-Za-z]+)=\"[^\"]*\"",
             " $1=\"" + std::string(value) + "\"",
             [&](const std::string& text) { ++outcomes[outcomeOf(ecu, text)]; });
  }
  EXPECT_GT(outcomes["kept"], 200);
}

TEST(BrokenEcuFiles, WithAnyOneElementOfAnotherNameFailClearlyOrLoad) {
  Ecu ecu;
  std::map<std::string, int> outcomes;
  for (const char* name : richSamples)
    withEach(sample(name), "<([A-Za-z0-9_]+)( [^<>]*)?/>", "<Q$1$2/>",
             [&](const std::string& text) { ++outcomes[outcomeOf(ecu, text)]; });
  EXPECT_GT(outcomes["kept"], 100);
}

TEST(BrokenEcuFiles, LeaveADatabaseThatLoadsTheNextFile) {
  Ecu ecu;
  const std::string good = sample("screens.xml");
  Ecu fresh;
  fresh.load(good);
  const std::string expected = fresh.saved();
  for (const auto& entry : fs::directory_iterator(KELMAR_TEST_DATA "/broken")) {
    SCOPED_TRACE(entry.path().filename().string());
    if (entry.path().extension() != ".xml") continue;
    Ecu::failureOf([&] { ecu.db.ImportUceFromXml(entry.path().string()); });
    ecu.db.functions.reset();
    ecu.load(good);
    EXPECT_TRUE(ecu.saved() == expected);
    EXPECT_EQ(ecu.report(), "");
  }
}

} // namespace
} // namespace kelmar::testing
