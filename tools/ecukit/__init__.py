# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes ECU files that read exactly as if the editor had saved them."""
