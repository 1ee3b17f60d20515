// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/scripted_person.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

using namespace kelmar::support;
using namespace kelmar::platform;

namespace {

const Box asked{"A/text", "Title", "Text", Buttons::YesNo, Icon::Question};
const FileQuestion wanted{FileQuestion::Kind::Save, "Save ECU", "All|*.*", ".xml", "engine"};

TEST(ScriptedPerson, AnswersInOrderAndNotesWhatWasAsked) {
  Recorder recorder;
  ScriptedPerson person;
  person.recordInto(recorder);
  bool stood = false;
  person.expect(asked, Answer::Yes, [&] { stood = true; });
  person.expect("", "Other", "t", Buttons::Ok, Icon::None, Answer::Ok);
  person.expectFile(wanted, "/tmp/a.xml");
  person.expectFile(wanted, std::nullopt);
  EXPECT_FALSE(person.allAsked());
  EXPECT_EQ(person.message(asked), Answer::Yes);
  EXPECT_TRUE(stood);
  EXPECT_EQ(person.message({"", "Other", "t"}), Answer::Ok);
  EXPECT_EQ(person.file(wanted), "/tmp/a.xml");
  EXPECT_EQ(person.file(wanted), std::nullopt);
  EXPECT_TRUE(person.allAsked());
  EXPECT_EQ(recorder.take(), (std::vector<std::string>{"box Title: Text", "box Other: t",
                                                       "file Save ECU", "file Save ECU"}));
  EXPECT_TRUE(recorder.events().empty());
}

TEST(ScriptedPerson, FailsOnAQuestionThatWasNotExpected) {
  ScriptedPerson person;
  EXPECT_NONFATAL_FAILURE(EXPECT_EQ(person.message(asked), Answer::No), "not expected");
  EXPECT_NONFATAL_FAILURE(person.file(wanted), "not expected");
  const Box loud{"", "T", "t", Buttons::YesNoCancel, Icon::None};
  EXPECT_NONFATAL_FAILURE(EXPECT_EQ(person.message(loud), Answer::Cancel), "not expected");
}

TEST(ScriptedPerson, FailsOnAFileQuestionInPlaceOfABox) {
  ScriptedPerson person;
  person.expect(asked, Answer::Yes);
  EXPECT_NONFATAL_FAILURE(person.file(wanted), "not expected");
  EXPECT_EQ(person.message(asked), Answer::Yes);
}

TEST(ScriptedPerson, FailsOnEachFieldThatDiffers) {
  std::vector<Box> others(5, asked);
  others[0].key = "A/title";
  others[1].title = "title";
  others[2].text = "Text ";
  others[3].buttons = Buttons::YesNoCancel;
  others[4].icon = Icon::Exclamation;
  for (const Box& other : others) {
    ScriptedPerson person;
    person.expect(asked, Answer::Yes);
    EXPECT_NONFATAL_FAILURE(person.message(other), "Title");
  }
  std::vector<FileQuestion> files(5, wanted);
  files[0].kind = FileQuestion::Kind::Open;
  files[1].title = "Open";
  files[2].filter = "";
  files[3].defaultExtension = "";
  files[4].proposal = "";
  for (const FileQuestion& other : files) {
    ScriptedPerson person;
    person.expectFile(wanted, std::nullopt);
    EXPECT_NONFATAL_FAILURE(person.file(other), "Save ECU");
  }
}

TEST(ScriptedPerson, FailsOnAQuestionThatWasNeverAsked) {
  EXPECT_NONFATAL_FAILURE(
      {
        ScriptedPerson person;
        person.expect(asked, Answer::Yes);
      },
      "never asked: box key \"A/text\"");
  EXPECT_NONFATAL_FAILURE(
      {
        ScriptedPerson person;
        person.expectFile(wanted, std::nullopt);
      },
      "never asked: file question Save");
}

TEST(ScriptedPerson, FailsOnAScriptThatPressesAButtonThatIsNotThere) {
  ScriptedPerson person;
  EXPECT_NONFATAL_FAILURE(person.expect(asked, Answer::Cancel), "not there");
  EXPECT_EQ(person.message(asked), Answer::Cancel);
}

} // namespace
