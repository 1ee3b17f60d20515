// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"

namespace kelmar {

const char* platformErrorText(PlatformError number) {
  switch (number) {
  case NumericOverflow:
    return "Overflow";
  case SubscriptOutOfRange:
    return "Index out of range";
  case TypeMismatch:
    return "Type mismatch";
  case FileAccessFailed:
    return "File access failed";
  case MissingObject:
    return "Object not set";
  case KeyExists:
    return "Key exists already";
  }
  return "Unknown error";
}

Failure platformFailure(PlatformError number, std::string source) {
  return Failure(number, std::move(source), platformErrorText(number));
}

} // namespace kelmar
