// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "language/error_box.h"

#include "language/multi_lang.h"

namespace kelmar {

void ShowErrorBox(platform::Person& person, const CMultiLangEx& texts, const Failure& failure) {
  platform::Box box;
  box.key = "GENERIC/error/text";
  box.title = texts.getMultilangMessageDefault("Error", "GENERIC/error/title");
  box.text = texts.getMultilangMessageDefault("Error # {0}{crlf}{1}", "GENERIC/error/text",
                                              std::to_string(failure.number), failure.text);
  box.icon = platform::Icon::Critical;
  person.message(box);
}

} // namespace kelmar
