// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/scripted_person.h"

#include <gtest/gtest.h>

namespace kelmar::support {

using platform::Answer;
using platform::Box;
using platform::Buttons;
using platform::FileQuestion;
using platform::Icon;

namespace {

const char* nameOf(Buttons buttons) {
  switch (buttons) {
  case Buttons::Ok:
    return "Ok";
  case Buttons::OkCancel:
    return "OkCancel";
  case Buttons::YesNo:
    return "YesNo";
  case Buttons::YesNoCancel:
    return "YesNoCancel";
  }
  return "?";
}

const char* nameOf(Icon icon) {
  switch (icon) {
  case Icon::None:
    return "None";
  case Icon::Critical:
    return "Critical";
  case Icon::Question:
    return "Question";
  case Icon::Exclamation:
    return "Exclamation";
  case Icon::Information:
    return "Information";
  }
  return "?";
}

const char* nameOf(FileQuestion::Kind kind) {
  switch (kind) {
  case FileQuestion::Kind::Open:
    return "Open";
  case FileQuestion::Kind::Save:
    return "Save";
  case FileQuestion::Kind::Folder:
    return "Folder";
  }
  return "?";
}

std::string quoted(const std::string& text) {
  return testing::PrintToString(text);
}

std::string describe(const Box& box) {
  return "box key " + quoted(box.key) + ", title " + quoted(box.title) + ", text " +
         quoted(box.text) + ", buttons " + nameOf(box.buttons) + ", icon " + nameOf(box.icon);
}

std::string describe(const FileQuestion& question) {
  return std::string("file question ") + nameOf(question.kind) + ", title " +
         quoted(question.title) + ", filter " + quoted(question.filter) + ", extension " +
         quoted(question.defaultExtension) + ", proposal " + quoted(question.proposal);
}

std::string describe(const platform::InputQuestion& question) {
  return "input key " + quoted(question.key) + ", title " + quoted(question.title) + ", text " +
         quoted(question.text) + ", proposal " + quoted(question.proposal);
}

/// What a careful person presses when asked out of the blue.
Answer safeAnswer(Buttons buttons) {
  switch (buttons) {
  case Buttons::Ok:
    return Answer::Ok;
  case Buttons::YesNo:
    return Answer::No;
  case Buttons::OkCancel:
  case Buttons::YesNoCancel:
    break;
  }
  return Answer::Cancel;
}

bool offers(Buttons buttons, Answer answer) {
  switch (answer) {
  case Answer::Ok:
    return buttons == Buttons::Ok || buttons == Buttons::OkCancel;
  case Answer::Cancel:
    return buttons == Buttons::OkCancel || buttons == Buttons::YesNoCancel;
  case Answer::Yes:
  case Answer::No:
    break;
  }
  return buttons == Buttons::YesNo || buttons == Buttons::YesNoCancel;
}

} // namespace

ScriptedPerson::~ScriptedPerson() {
  for (const auto& expected : script_) {
    std::visit(
        [](const auto& question) {
          using Kind = std::decay_t<decltype(question)>;
          if constexpr (std::is_same_v<Kind, ExpectedBox>) {
            ADD_FAILURE() << "never asked: " << describe(question.box);
          } else {
            ADD_FAILURE() << "never asked: " << describe(question.question);
          }
        },
        expected);
  }
}

void ScriptedPerson::expect(Box box, Answer answer, std::function<void()> meanwhile) {
  if (!offers(box.buttons, answer))
    ADD_FAILURE() << "the script presses a button that is not there: " << describe(box);
  script_.emplace_back(ExpectedBox{std::move(box), answer, std::move(meanwhile)});
}

void ScriptedPerson::expect(std::string key, std::string title, std::string text, Buttons buttons,
                            Icon icon, Answer answer) {
  expect(Box{std::move(key), std::move(title), std::move(text), buttons, icon}, answer);
}

void ScriptedPerson::expectFile(FileQuestion question, std::optional<std::string> answer,
                                std::function<void()> meanwhile) {
  script_.emplace_back(ExpectedFile{std::move(question), std::move(answer), std::move(meanwhile)});
}

Answer ScriptedPerson::message(const Box& box) {
  if (recorder_) recorder_->note("box " + box.title + ": " + box.text);
  if (script_.empty() || !std::holds_alternative<ExpectedBox>(script_.front())) {
    ADD_FAILURE() << "not expected: " << describe(box);
    return safeAnswer(box.buttons);
  }
  const ExpectedBox expected = std::get<ExpectedBox>(std::move(script_.front()));
  script_.pop_front();
  EXPECT_EQ(describe(box), describe(expected.box));
  if (expected.meanwhile) expected.meanwhile();
  return expected.answer;
}

std::optional<std::string> ScriptedPerson::file(const FileQuestion& question) {
  if (recorder_) recorder_->note("file " + question.title);
  if (script_.empty() || !std::holds_alternative<ExpectedFile>(script_.front())) {
    ADD_FAILURE() << "not expected: " << describe(question);
    return std::nullopt;
  }
  const ExpectedFile expected = std::get<ExpectedFile>(std::move(script_.front()));
  script_.pop_front();
  EXPECT_EQ(describe(question), describe(expected.question));
  if (expected.meanwhile) expected.meanwhile();
  return expected.answer;
}

void ScriptedPerson::expectInput(platform::InputQuestion question, std::string answer,
                                 std::function<void()> meanwhile) {
  script_.emplace_back(ExpectedInput{std::move(question), std::move(answer), std::move(meanwhile)});
}

std::string ScriptedPerson::input(const platform::InputQuestion& question) {
  if (recorder_) recorder_->note("input " + question.title);
  if (script_.empty() || !std::holds_alternative<ExpectedInput>(script_.front())) {
    ADD_FAILURE() << "not expected: " << describe(question);
    return {};
  }
  const ExpectedInput expected = std::get<ExpectedInput>(std::move(script_.front()));
  script_.pop_front();
  EXPECT_EQ(describe(question), describe(expected.question));
  if (expected.meanwhile) expected.meanwhile();
  return expected.answer;
}

} // namespace kelmar::support
