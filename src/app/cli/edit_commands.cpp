// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/commands.h"
#include "app/cli/session.h"

namespace kelmar::cli {

namespace {

/// The item of that name in the collection; raises when there is none.
template <class Collection>
auto* itemNamed(const Collection& items, const char* kind, const std::string& name) {
  auto* item = items ? items->ItemName(name) : nullptr;
  if (!item) throw Failure(1, "", std::string(kind) + " '" + name + "' not found");
  return item;
}

using Words = std::vector<std::string>;

/// Raises WrongUse. An old name may be empty: a file can hold such an item, to be renamed.
const Arguments& withNewName(const Arguments& arguments) {
  if (arguments.words()[2].empty()) throw WrongUse("the new name is empty");
  return arguments;
}

/// Loads, changes, saves: nothing is written when one of the steps fails.
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

} // namespace

int runSave(const Arguments& arguments, Output&) {
  return editFile(arguments, [](TargetItem&, const Words&) {});
}

int runRenameData(const Arguments& arguments, Output&) {
  return editFile(withNewName(arguments), [](TargetItem& target, const Words& words) {
    target.RenameData(itemNamed(target.datas(), "Data", words[1]), words[2]);
  });
}

int runRenameRequest(const Arguments& arguments, Output&) {
  return editFile(withNewName(arguments), [](TargetItem& target, const Words& words) {
    target.RenameRequest(itemNamed(target.Requests(), "Request", words[1]), words[2]);
  });
}

int runRenameDevice(const Arguments& arguments, Output&) {
  return editFile(withNewName(arguments), [](TargetItem& target, const Words& words) {
    target.RenameDevice(itemNamed(target.Organes(), "Device", words[1]), words[2]);
  });
}

int runDeleteData(const Arguments& arguments, Output&) {
  return editFile(arguments, [](TargetItem& target, const Words& words) {
    target.DeleteData(itemNamed(target.datas(), "Data", words[1]));
  });
}

int runDeleteRequest(const Arguments& arguments, Output&) {
  return editFile(arguments, [](TargetItem& target, const Words& words) {
    target.DeleteRequest(itemNamed(target.Requests(), "Request", words[1]));
  });
}

int runDeleteDevice(const Arguments& arguments, Output&) {
  return editFile(arguments, [](TargetItem& target, const Words& words) {
    target.DeleteDevice(itemNamed(target.Organes(), "Device", words[1]));
  });
}

} // namespace kelmar::cli
