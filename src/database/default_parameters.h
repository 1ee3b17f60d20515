// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelmar {

/// The built-in catalogue of protocols, types of failure and types of device: a document in
/// windows-1252, as it says of itself.
extern const char defaultParameters[];

} // namespace kelmar
