// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QLineEdit;

namespace kelmar::desktop {

/// Letters that come into the field from now on become capitals; what stands in it stays.
void SetEditUppercase(QLineEdit& field);

/// Only digits can be typed or pasted from now on; what code sets stays as it is.
void SetEditNumeric(QLineEdit& field);

} // namespace kelmar::desktop
