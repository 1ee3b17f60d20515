// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/person.h"
#include "support/recorder.h"

#include <deque>
#include <functional>
#include <variant>

namespace kelmar::support {

/// Answers from a script. Each question must be the next one of the script, in every field; a
/// question that was not expected, and one that was not asked by the end of the test, fail it.
class ScriptedPerson : public platform::Person {
 public:
  ScriptedPerson() = default;
  ScriptedPerson(const ScriptedPerson&) = delete;
  ScriptedPerson& operator=(const ScriptedPerson&) = delete;
  /// Fails the test when a question is still waiting.
  ~ScriptedPerson() override;

  /// Notes "box TITLE: TEXT" and "file TITLE" in a list shared with signals.
  void recordInto(Recorder& recorder) { recorder_ = &recorder; }

  /// `meanwhile` runs while the question stands, before it is answered.
  void expect(platform::Box box, platform::Answer answer, std::function<void()> meanwhile = {});
  void expect(std::string key, std::string title, std::string text, platform::Buttons buttons,
              platform::Icon icon, platform::Answer answer);
  /// None as answer is a cancel.
  void expectFile(platform::FileQuestion question, std::optional<std::string> answer,
                  std::function<void()> meanwhile = {});

  /// An empty answer is a cancel.
  void expectInput(platform::InputQuestion question, std::string answer,
                   std::function<void()> meanwhile = {});

  /// True when every expected question was asked.
  bool allAsked() const { return script_.empty(); }

  platform::Answer message(const platform::Box& box) override;
  std::optional<std::string> file(const platform::FileQuestion& question) override;
  std::string input(const platform::InputQuestion& question) override;

 private:
  struct ExpectedBox {
    platform::Box box;
    platform::Answer answer;
    std::function<void()> meanwhile;
  };
  struct ExpectedFile {
    platform::FileQuestion question;
    std::optional<std::string> answer;
    std::function<void()> meanwhile;
  };
  struct ExpectedInput {
    platform::InputQuestion question;
    std::string answer;
    std::function<void()> meanwhile;
  };
  std::deque<std::variant<ExpectedBox, ExpectedFile, ExpectedInput>> script_;
  Recorder* recorder_ = nullptr;
};

} // namespace kelmar::support
