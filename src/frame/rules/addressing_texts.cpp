// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/addressing_texts.h"

#include "language/multi_lang.h"

namespace kelmar {

platform::Box unreadableFileBox(const CMultiLangEx& texts, const std::string& file,
                                const std::string& reason) {
  return {
      "SELECTOR/MSG/ReadAddressingFile/text",
      texts.getMultilangMessageDefault("Contact hotline", "SELECTOR/MSG/ReadAddressingFile/title"),
      texts.getMultilangMessageDefault(
          "Internal error : impossible to read file : {0}{crlf}reason : {1}",
          "SELECTOR/MSG/ReadAddressingFile/text", file, reason),
      platform::Buttons::Ok, platform::Icon::Critical};
}

platform::Box unreadableCanIdBox(const CMultiLangEx& texts, const std::string& file,
                                 const std::string& reason) {
  return {"SELECTOR/MSG/ReadCanId/text",
          texts.getMultilangMessageDefault("Contact hotline", "SELECTOR/MSG/ReadCanId/title"),
          texts.getMultilangMessageDefault(
              "Internal error : impossible to read canId : {0}{crlf}reason : {1}",
              "SELECTOR/MSG/ReadCanId/text", file, reason),
          platform::Buttons::Ok, platform::Icon::Critical};
}

} // namespace kelmar
