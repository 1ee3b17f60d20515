// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/commands.h"
#include "app/cli/edit_file.h"
#include "exports/rvt_scenario.h"
#include "platform/files.h"

#include <unordered_set>

namespace kelmar::cli {

namespace {

/// The named requests, in the order of the list as in the window; all without names. Raises Failure
/// 1 for a name that is not there.
std::vector<const RequestItem*> selectedRequests(const TargetItem& target, const Words& words) {
  std::unordered_set<const RequestItem*> named;
  for (std::size_t i = 1; i < words.size(); ++i)
    named.insert(itemNamed(target.Requests(), "Request", words[i]));
  std::vector<const RequestItem*> selected;
  if (!target.Requests()) return selected;
  for (const RequestItem* request : *target.Requests())
    if (words.size() == 1 || named.contains(request)) selected.push_back(request);
  return selected;
}

} // namespace

int runRvt(const Arguments& arguments, Output&) {
  const Words& words = arguments.words();
  const std::string output = arguments.value("-o").value_or("");
  if (output.empty()) throw WrongUse("rvt needs the option -o OUT");
  if (isSameFile(words[0], output)) throw WrongUse("OUT is the ECU file");
  Session session(words[0], arguments);
  if (!session.load()) return failed;
  try {
    const TargetItem& target = session.target();
    platform::writeWhole(platform::localPathOf(output),
                         rvtScenario(target, selectedRequests(target, words)));
    return done;
  } catch (const Failure& failure) {
    return session.tell(failure);
  }
}

} // namespace kelmar::cli
