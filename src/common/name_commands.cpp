// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/name_commands.h"

#include "base/text.h"
#include "language/multi_lang.h"

namespace kelmar {

namespace {

std::string textOf(const KeyedText& text, const std::string& p0 = {}, const std::string& p1 = {}) {
  return language::global().getMultilangMessageDefault(std::string(text.text), text.key, p0, p1);
}

bool isConfirmed(const NameCommand& command, platform::Person& person, const std::string& p0 = {},
                 const std::string& p1 = {}) {
  const platform::Box box{command.confirm.key, textOf(command.title),
                          textOf(command.confirm, p0, p1), platform::Buttons::YesNo,
                          platform::Icon::Question};
  return person.message(box) == platform::Answer::Yes;
}

} // namespace

std::function<std::string(const std::string&)> askNameChange(const NameCommand& command,
                                                             platform::Person& person) {
  if (command.change == NameChange::Replace) {
    const std::string wanted =
        person.input({command.search.key, textOf(command.searchTitle), textOf(command.search), ""});
    if (wanted.empty()) return {};
    const std::string replacement =
        person.input({command.replacement.key, textOf(command.replacementTitle),
                      textOf(command.replacement), ""});
    if (!isConfirmed(command, person, wanted, replacement)) return {};
    return [=](const std::string& name) { return replaceAll(name, wanted, replacement); };
  }
  if (!isConfirmed(command, person)) return {};
  switch (command.change) {
  case NameChange::Normalize:
    return [](const std::string& name) { return CleanSpaces(name); };
  case NameChange::UpperCase:
    return [](const std::string& name) { return upperCase(name); };
  case NameChange::LowerCase:
    return [](const std::string& name) { return lowerCase(name); };
  // Both entries do the same; they differ in the texts that they ask with.
  default:
    return [](const std::string& name) { return CapitalizeWords(name, false); };
  }
}

} // namespace kelmar
