// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/arguments.h"

#include "base/conversions.h"
#include "base/failure.h"

#include <algorithm>

namespace kelmar::cli {

Arguments::Arguments(const std::vector<std::string>& words, std::span<const Option> known) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (word == "--") {
      words_.insert(words_.end(), words.begin() + static_cast<std::ptrdiff_t>(i) + 1, words.end());
      return;
    }
    if (word.size() < 2 || word[0] != '-') {
      words_.push_back(word);
      continue;
    }
    const std::size_t equals = word.starts_with("--") ? word.find('=') : std::string::npos;
    const std::string name = word.substr(0, equals);
    const auto option = std::find_if(known.begin(), known.end(),
                                     [&](const Option& each) { return each.name == name; });
    if (option == known.end()) throw WrongUse("unknown option " + name);
    if (!option->hasValue) {
      if (equals != std::string::npos) throw WrongUse("option " + name + " takes no value");
      values_[name] = "";
    } else if (equals != std::string::npos) {
      values_[name] = word.substr(equals + 1);
    } else if (++i < words.size()) {
      values_[name] = words[i];
    } else {
      throw WrongUse("option " + name + " needs a value");
    }
  }
}

std::optional<std::string> Arguments::value(const std::string& option) const {
  const auto found = values_.find(option);
  return found == values_.end() ? std::nullopt : std::optional(found->second);
}

std::int32_t Arguments::number(const std::string& option, std::int32_t otherwise) const {
  const auto text = value(option);
  if (!text) return otherwise;
  try {
    const bool isHexadecimal = text->starts_with("0x") || text->starts_with("0X");
    return toInt32(isHexadecimal ? "&H" + text->substr(2) : *text);
  } catch (const Failure&) {
    throw WrongUse("option " + option + ": '" + *text + "' is no number of 32 bits");
  }
}

} // namespace kelmar::cli
