// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace kelmar {

/// Answers whether an item of that name exists.
using NameExists = std::function<bool(const std::string&)>;

/// "New", then "New1", "New2", ... until the name is free.
std::string freeNewName(const NameExists& exists);

/// The names of pasted items. One object serves one paste: the counter is not reset between items,
/// so that the copies of one name are "Copy name", "Copy(0)name", "Copy(1)name".
class CopyNames {
 public:
  /// `name` itself while it is free, else its next free copy.
  std::string freeName(const std::string& name, const NameExists& exists);

 private:
  std::string prefix_ = "Copy ";
  int counter_ = 0;
};

/// A name that leading or trailing blanks, or runs of blanks, make hard to tell from another.
bool hasStraySpaces(std::string_view name);

/// What a person typed as the name of a request: normalised blanks, no ";".
std::string typedName(std::string_view text);

} // namespace kelmar
