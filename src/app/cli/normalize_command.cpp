// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/commands.h"
#include "app/cli/edit_file.h"
#include "editors/rules/requests/reply_template.h"

namespace kelmar::cli {

int runNormalizeReplies(const Arguments& arguments, Output& output) {
  int changed = 0;
  const int code = editFile(arguments, [&](TargetItem& target, const Words&) {
    if (!target.Requests()) return;
    for (RequestItem* request : *target.Requests())
      if (NormalizeReplyTemplate(*request, target)) ++changed;
  });
  if (code == done) output << std::to_string(changed) << " reply templates changed\n";
  return code;
}

} // namespace kelmar::cli
