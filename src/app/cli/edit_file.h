// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/cli/session.h"

#include <string>
#include <vector>

namespace kelmar::cli {

using Words = std::vector<std::string>;

/// The item of that name in the collection; raises Failure 1 when there is none.
template <class Collection>
auto* itemNamed(const Collection& items, const char* kind, const std::string& name) {
  auto* item = items ? items->ItemName(name) : nullptr;
  if (!item) throw Failure(1, "", std::string(kind) + " '" + name + "' not found");
  return item;
}

/// Loads the file of the first word, changes, saves: nothing is written when one of the steps
/// fails. `change` is called with the ECU and the words; what it raises is told. Answers with the
/// exit code.
template <class Change>
int editFile(const Arguments& arguments, Change change) {
  // Wrong use is told before a large file is loaded for nothing.
  chosenEncoding(arguments);
  if (arguments.value("-o") == "") throw WrongUse("option -o needs a value");
  Session session(arguments.words()[0], arguments);
  if (!session.load() || !session.prepareSaving()) return failed;
  try {
    change(session.target(), arguments.words());
  } catch (const Failure& failure) {
    return session.tell(failure);
  }
  return session.save();
}

} // namespace kelmar::cli
