// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace kelmar {

/// The one exception type of the house: a number, a plain text, and the routine it comes from.
class Failure : public std::exception {
 public:
  Failure(int failureNumber, std::string routine, std::string message)
      : number(failureNumber), source(std::move(routine)), text(std::move(message)) {}

  const char* what() const noexcept override { return text.c_str(); }

  int number;
  std::string source; ///< may be empty
  std::string text;
};

/// Numbers of the failures that no routine words itself. Their texts are in one table.
enum PlatformError {
  NumericOverflow = 6,
  SubscriptOutOfRange = 9,
  TypeMismatch = 13,
  FileAccessFailed = 75,
  MissingObject = 91,
  KeyExists = 457,
};

/// The plain English text of a PlatformError, such as "Object not set" for MissingObject.
const char* platformErrorText(PlatformError number);

/// A failure with the text of the table.
Failure platformFailure(PlatformError number, std::string source = {});

} // namespace kelmar
