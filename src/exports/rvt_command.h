// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/target_item.h"
#include "platform/machine.h"
#include "platform/person.h"

#include <string>
#include <vector>

namespace kelmar {

/// "Generate RVT2000 tests for selected requests": the scenario of these requests goes into the
/// file ECU_Base_Test.xml of a folder that the person chooses and that the setting `RvtExportPath`
/// keeps. Without effect without `target`, and when the person cancels or keeps the file that is
/// there. Failures are shown. The texts are English in every language, on purpose: the tool's own
/// are.
void generateRvtTests(const TargetItem* target, const std::vector<const RequestItem*>& selected,
                      platform::Person& person, platform::Settings& settings);

} // namespace kelmar
