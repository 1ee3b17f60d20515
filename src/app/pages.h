// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/kelmar_form.h"

namespace kelmar {

/// The pages of the editor, by the keys of their tabs, over what the window knows of the machine.
omnikorEditor::PageMakers pageMakers(const KelmarForm::Machine& machine);

} // namespace kelmar
