// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/telling_person.h"

#include "app/cli/output.h"
#include "base/text.h"

namespace kelmar::cli {

using platform::Answer;
using platform::Buttons;

Answer TellingPerson::message(const platform::Box& box) {
  const std::string line = box.title + ": " + box.text;
  complain("box: " + replaceAll(normaliseLineEnds(line), "\r\n", "\\n"));
  const bool agrees = answer_.value_or(Answer::Yes) == Answer::Yes || answer_ == Answer::Ok;
  switch (box.buttons) {
  case Buttons::Ok:
    return Answer::Ok;
  case Buttons::OkCancel:
    return agrees ? Answer::Ok : Answer::Cancel;
  case Buttons::YesNo:
    return agrees ? Answer::Yes : Answer::No;
  case Buttons::YesNoCancel:
    break;
  }
  if (agrees) return Answer::Yes;
  return *answer_;
}

} // namespace kelmar::cli
