// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/name_commands.h"
#include "database/target_item.h"
#include "editors/rules/datas/data_clipboard.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace kelmar {

/// The data as the list shows them: sorted by name, whatever their order in the ECU.
std::vector<DataItem*> listedDatas(const TargetItem& target, bool descending = false);

/// A new data under the first free of the names "New", "New1", ... in its place among the others.
DataItem* newData(TargetItem& target);

/// Deletes the selected data one after the other, asking before each one that is used, and once for
/// those that are not. True when one was deleted. A data that is used goes by `deletes`, which is
/// TargetItem::DeleteData when nothing is given; what it raises is told, and the next one follows.
bool CutData(TargetItem& target, SelectedDatas datas, platform::Person& person,
             const std::function<void(DataItem*)>& deletes = {});

/// The commands that change the names of the selected data, each with what it asks.
std::span<const NameCommand> dataNameCommands();
/// Asks, then renames; a name that is taken leaves its data alone. True when one was renamed.
bool changeDataNames(const NameCommand& command, TargetItem& target, SelectedDatas datas,
                     platform::Person& person);

/// Data for which no request has a position, told for all data of the ECU at once.
std::function<bool(const DataItem&)> unusedDatas(const TargetItem& target);

} // namespace kelmar
