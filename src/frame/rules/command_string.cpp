// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/command_string.h"

#include "base/conversions.h"
#include "base/failure.h"
#include "base/text.h"
#include "frame/rules/selector_texts.h"
#include "platform/files.h"

namespace kelmar::frame {

namespace {

constexpr double visibleMargin = 8 * twipsPerPixel;
constexpr double cascadeStep = 16 * twipsPerPixel;

std::int32_t requested(const std::string& item, double extent) {
  if (!isNumeric(item)) return -1;
  try {
    const std::int32_t value = toInt32(item);
    return value < 0 || value > extent - visibleMargin ? -1 : value;
  } catch (const Failure&) {
    return -1; // beyond 32 bits, so beyond every screen
  }
}

bool isNegativeNumber(const std::string& word) {
  return word.size() > 1 && word[0] == '-' &&
         ((word[1] >= '0' && word[1] <= '9') || word[1] == '.');
}

bool isOption(const std::string& word) {
  return word.size() > 1 && word[0] == '-' && !isNegativeNumber(word);
}

bool isMeantAsFile(const std::string& word) {
  return platform::fileExists(word) || word.find('/') != std::string::npos ||
         lowerCase(word).ends_with(".xml");
}

/// A web address as it stands, anything else as an absolute path.
std::string placeOf(const std::string& word) {
  if (platform::fileExists(word)) return platform::absolutePath(word);
  return isWebAddress(word) ? word : platform::absolutePath(platform::localPathOf(word));
}

} // namespace

RequestedPosition requestedPosition(const std::string& commandString, Extent screen) {
  const std::vector<std::string> items = split(commandString, ",");
  if (items.size() != 2) return {};
  return {requested(items[0], screen.width), requested(items[1], screen.height)};
}

std::string positionOfNextWindow(double left, double top) {
  return doubleToPlainText(left + cascadeStep) + "," + doubleToPlainText(top + cascadeStep);
}

CommandLine readCommandLine(const std::vector<std::string>& words) {
  CommandLine line;
  bool optionsEnded = false;
  for (std::size_t i = 0; i < words.size() && line.mistake.empty(); ++i) {
    const std::string& word = words[i];
    if (!optionsEnded && word == "--") {
      optionsEnded = true;
    } else if (!optionsEnded && isOption(word)) {
      const std::size_t sign = word.find('=');
      const std::string name = word.substr(0, sign);
      const bool takesValue = name == "--site" || name == "--lang";
      std::string value;
      if (takesValue) {
        if (sign != std::string::npos)
          value = word.substr(sign + 1);
        else if (i + 1 < words.size())
          value = words[++i];
        if (value.empty()) line.mistake = "option " + name + " needs a value";
        (name == "--site" ? line.site : line.language) = value;
      } else if (word == "--help") {
        line.help = true;
      } else if (word == "--version") {
        line.version = true;
      } else {
        line.mistake = "unknown option " + word;
      }
    } else if (isMeantAsFile(word)) {
      if (!line.file.empty())
        line.mistake = "only one file can be opened, " + word + " is the second";
      line.file = placeOf(word);
    } else if (!word.empty()) {
      line.commandString += (line.commandString.empty() ? "" : " ") + word;
    }
  }
  return line;
}

std::string commandLineHelp() {
  return "Usage: kelmar [OPTION...] [FILE] [LEFT,TOP]\n"
         "Edit the diagnostic database of a vehicle control unit.\n"
         "\n"
         "  FILE        ECU file to open, or its http: address\n"
         "  LEFT,TOP    place of the window, in twips (15 to a pixel)\n"
         "\n"
         "  --site DIR  data root to work on, in place of the configured one\n"
         "  --lang CODE language of the window, such as en or fr\n"
         "  --help      print this text and end\n"
         "  --version   print the version and end\n"
         "\n"
         "Exit status: 0 after a normal end, 1 when the program cannot start, 2 for wrong use.\n";
}

} // namespace kelmar::frame
