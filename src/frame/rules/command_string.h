// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/rules/window_placement.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kelmar::frame {

/// Where the window is wanted, in twips; -1 for no wish.
struct RequestedPosition {
  std::int32_t left = -1;
  std::int32_t top = -1;
  friend bool operator==(const RequestedPosition&, const RequestedPosition&) = default;
};

/// Reads "left,top". Counts only with exactly two items; each item only when it is a number of
/// 32 bits that lies on the screen, at least 8 pixels before its end.
RequestedPosition requestedPosition(const std::string& commandString, Extent screen);

/// The command string that opens a further window 16 pixels down and right of this one.
std::string positionOfNextWindow(double left, double top);

/// What the words after the program's name say.
struct CommandLine {
  bool help = false;
  bool version = false;
  std::string site;          ///< "--site"
  std::string language;      ///< "--lang"
  std::string file;          ///< path or web address to open, empty for none
  std::string commandString; ///< the words that are neither option nor file, joined by blanks
  std::string mistake;       ///< what is wrong with the use; empty when nothing is
};

/// A word that names an existing file, or that can only be meant as one (it holds a "/" or ends in
/// ".xml"), is the file to open; "http:", "https:" and "file:" addresses are, too. "-" before a
/// digit is a number and no option; "--" ends the options.
CommandLine readCommandLine(const std::vector<std::string>& words);

/// What "--help" prints.
std::string commandLineHelp();

} // namespace kelmar::frame
