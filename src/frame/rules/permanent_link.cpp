// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/permanent_link.h"

#include "base/failure.h"
#include "base/text.h"

namespace kelmar {

void CECUpermalink::createPermanentLinkForECU(const std::string& ecuName) {
  make("/getECUfile.asp?ecu=", ecuName);
}

void CECUpermalink::createPermanentLinkForECUFile(const std::string& fileName) {
  make("/getECUfile.asp?file=", fileName);
}

void CECUpermalink::make(const char* question, const std::string& value) {
  if (const std::optional<std::string> server = dataServer_ ? dataServer_() : std::nullopt)
    link_ = *server + question + UrlEncode(value);
}

std::string CECUpermalink::permaLink() const {
  if (link_.empty())
    throw Failure(1, "CECUpermalink", "createPermanentLinkForECU must be called first");
  return link_;
}

std::string UrlEncode(std::string_view text) {
  constexpr std::u32string_view kept =
      U"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_.!~*'() ";
  std::string encoded;
  for (const char32_t character : toCodePoints(text)) {
    if (kept.find(character) != std::u32string_view::npos) {
      appendCodePoint(encoded, character);
    } else {
      const std::string code = hexText(static_cast<std::int32_t>(character));
      encoded += code.size() < 2 ? "%0" + code : "%" + code;
    }
  }
  return replaceAll(encoded, " ", "+");
}

} // namespace kelmar
