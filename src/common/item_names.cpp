// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/item_names.h"

#include "base/text.h"

namespace kelmar {

std::string freeNewName(const NameExists& exists) {
  std::string name = "New";
  for (int number = 1; exists(name); ++number)
    name = "New" + std::to_string(number);
  return name;
}

std::string CopyNames::freeName(const std::string& name, const NameExists& exists) {
  std::string candidate = name;
  while (exists(candidate)) {
    candidate = prefix_ + name;
    prefix_ = "Copy(" + std::to_string(counter_++) + ")";
  }
  return candidate;
}

bool hasStraySpaces(std::string_view name) {
  return CleanSpaces(name) != name;
}

std::string typedName(std::string_view text) {
  return SemicolonsToUnderscores(CleanSpaces(text));
}

} // namespace kelmar
