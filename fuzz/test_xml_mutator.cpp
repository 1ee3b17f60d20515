// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/xml_mutator.h"
#include "platform/files.h"
#include "xml/document.h"

#include <gtest/gtest.h>
#include <set>

namespace kelmar::fuzz {
namespace {

TEST(XmlMutator, ChangesAFileInManyWaysAndLeavesMostWellFormed) {
  constexpr unsigned seed = 20260115;
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  const std::string file = platform::readFile(KELMAR_TEST_DATA "/good/devices-and-tests.xml");
  std::set<std::string> changed;
  int wellFormed = 0;
  for (int i = 0; i < 500; ++i) {
    const std::string text = mutateXml(file, random);
    changed.insert(text);
    xml::Document document;
    wellFormed += document.loadBytes(text);
  }
  EXPECT_GT(changed.size(), 400u);
  EXPECT_GT(wellFormed, 450);
}

TEST(XmlMutator, LeavesWhatIsNoMarkupAsItIs) {
  std::mt19937 random(1);
  for (const char* text : {"", "no markup", "<", "<a", "a > b", "</a>"})
    for (int i = 0; i < 20; ++i)
      EXPECT_EQ(mutateXml(text, random), text);
}

} // namespace
} // namespace kelmar::fuzz
