// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/page_address.h"

#include "base/text.h"

namespace kelmar::frame {

namespace {

constexpr std::size_t prefixLength = 5; // "http:" and "file:"

std::string urlPathOf(const std::string& text) {
  return isLocalPath(text) ? PathToUrl(text) : text;
}

} // namespace

std::string PathToUrl(std::string_view text) {
  return replaceAll(replaceAll(replaceAll(text, "/", "%2E"), "\\", "/"), " ", "%20");
}

bool isLocalPath(std::string_view text) {
  return characterCount(text) <= prefixLength ||
         !(startsWithFolded(text, "http:") || startsWithFolded(text, "file:"));
}

std::string pathForUrl(std::string_view localPath) {
  std::string path = replaceAll(localPath, "%", "%25");
  path = replaceAll(path, "\\", "%5C");
  path = replaceAll(path, "#", "%23");
  path = replaceAll(path, "?", "%3F");
  path = replaceAll(path, "/", "\\");
  return path.starts_with('\\') ? path.substr(1) : path;
}

std::string checkReportAddress(const std::string& dataRoot, const std::string& uceXml) {
  return "file:///" + urlPathOf(dataRoot) + "/report/showEcus.htm#" + urlPathOf(uceXml);
}

std::string helpAddress(const std::string& dataRoot, const std::string& language,
                        const std::string& helpModule, const std::string& helpFunction) {
  if (helpModule.empty()) return {};
  const std::string base = (isLocalPath(dataRoot) ? "file:///" : "") + urlPathOf(dataRoot);
  return base + "/doc/kelmar/" + language + "/" + helpModule + ".htm" +
         (helpFunction.empty() ? "" : "#" + helpFunction);
}

} // namespace kelmar::frame
