// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/commands.h"
#include "app/cli/edit_file.h"

namespace kelmar::cli {

namespace {

/// Raises WrongUse. An old name may be empty: a file can hold such an item, to be renamed.
const Arguments& withNewName(const Arguments& arguments) {
  if (arguments.words()[2].empty()) throw WrongUse("the new name is empty");
  return arguments;
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
