# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Content of the demonstration site. Makers, vehicles and suppliers are invented."""
