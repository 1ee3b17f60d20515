// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/name_commands.h"

#include <span>
#include <string_view>

namespace kelmar {

/// A name command of the request page by its menu entry.
struct RequestNameCommand {
  const char* entry;
  NameCommand command;
};

std::span<const RequestNameCommand> requestNameCommands();
/// None for an entry that is no name command.
const NameCommand* requestNameCommand(std::string_view entry);

} // namespace kelmar
