// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/person.h"

#include <functional>
#include <span>
#include <string>

namespace kelmar {

/// The commands that change the names of all selected items.
enum class NameChange {
  Normalize,
  UpperCase,
  LowerCase,
  CapitalizeWords,
  CapitalizeWords1,
  Replace
};

/// A text of the language service: its key and its default.
struct KeyedText {
  const char* key;
  const char* text;
};

/// One name command of a page: what it asks before it runs. The input texts are those of Replace.
struct NameCommand {
  NameChange change;
  KeyedText confirm, title;
  KeyedText search{}, searchTitle{}, replacement{}, replacementTitle{};
};

/// Asks what the command asks and gives the function from old name to new; none when the person
/// declines. Replaces every occurrence, with regard to case.
std::function<std::string(const std::string&)> askNameChange(const NameCommand& command,
                                                             platform::Person& person);

} // namespace kelmar
