// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/failure.h"
#include "database/data_liste_item.h"

#include <memory>
#include <optional>
#include <vector>

namespace kelmar {

/// The list that AddData gives when it takes the items one after the other into an empty list, in a
/// time that grows with their number. Items that AddData refuses are left out; `refused` takes the
/// first of the refusals.
std::shared_ptr<DataListeItems> sortedListOf(const std::vector<DataListeItems::Pointer>& items,
                                             std::optional<Failure>& refused);

} // namespace kelmar
