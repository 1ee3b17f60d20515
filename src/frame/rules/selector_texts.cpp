// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/selector_texts.h"

#include "base/text.h"
#include "base/version.h"
#include "language/multi_lang.h"

namespace kelmar {

std::string fileLabel(const CMultiLangEx& texts, const std::string& file) {
  // The file is added here and not by a placeholder: a path may hold braces.
  return texts.getMultilangMessageDefault("File name : ", "SELECTOR/MSG/lbFileName/text") + file;
}

std::string lastSegment(const std::string& address) {
  return address.substr(address.rfind('/') + 1); // npos + 1 is 0
}

std::string remoteFileLabel(const std::string& dataSet, const std::string& address) {
  return "[" + dataSet + "] " + lastSegment(address);
}

bool isWebAddress(const std::string& address) {
  return startsWithFolded(address, "http:") || startsWithFolded(address, "https:");
}

bool isRemoteAddress(const std::string& address) {
  return isWebAddress(address) || startsWithFolded(address, "file:");
}

bool isHttpAddress(const std::string& address) {
  return startsWithFolded(address, "http:");
}

std::string selectionText(const CMultiLangEx& texts, const std::string& address,
                          const std::string& description) {
  return texts.getMultilangMessageDefault("Filename: ", "SELECTOR/MSG/TxEcuDesc/text") +
         lastSegment(address) + "\r\n" + std::string(20, '-') + "\r\n" +
         widenLineFeeds(description);
}

std::string hiddenFunctionText(const CMultiLangEx& texts, const HiddenFacts& facts) {
  return texts.getMultilangMessageDefault(
      "Kelmar Version : {0}{crlf}Copyright : {1}{crlf}BaseUrl = {2}{crlf}XmlStyleSheet = {3}{crlf}"
      "XmlSchemaTarget = {4}{crlf}XmlSchemaScreen = {5}",
      "SELECTOR/MSG/hiddenFunction/text", facts.version, applicationCopyright, facts.BaseUrl,
      facts.xmlStyleSheet, facts.XmlSchemaTarget, facts.XmlSchemaScreen);
}

} // namespace kelmar
