// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace kelmar {

class CMultiLangEx;

/// "File name : " and the file.
std::string fileLabel(const CMultiLangEx& texts, const std::string& file);

/// What follows the last "/" of an address; the whole of one without.
std::string lastSegment(const std::string& address);

/// The file label of an ECU that has no local file: "[data set] name".
std::string remoteFileLabel(const std::string& dataSet, const std::string& address);

/// "http:" and "https:", in any case.
bool isWebAddress(const std::string& address);
/// True for an address that is no local path: a web address or "file:", in any case.
bool isRemoteAddress(const std::string& address);
bool isHttpAddress(const std::string& address);

/// What is shown of a selection in the tree: name, a line, and the description with CR LF.
std::string selectionText(const CMultiLangEx& texts, const std::string& address,
                          const std::string& description);

/// What the page's hidden function tells.
struct HiddenFacts {
  std::string version, BaseUrl, xmlStyleSheet, XmlSchemaTarget, XmlSchemaScreen;
};
std::string hiddenFunctionText(const CMultiLangEx& texts, const HiddenFacts& facts);

} // namespace kelmar
