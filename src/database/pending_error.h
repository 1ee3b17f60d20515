// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/failure.h"

namespace kelmar {

/// The one slot of a tolerant load: a failing step sets it and reading goes on; entering a
/// `loadXml` clears it; leaving keeps it, and the collection that loads the item looks at it.
class PendingError {
 public:
  bool isSet() const { return set_; }
  int number() const { return set_ ? error_.number : 0; }
  const Failure& error() const { return error_; }

  void clear() { set_ = false; }
  void set(int number, std::string source, std::string text) {
    error_ = Failure(number, std::move(source), std::move(text));
    set_ = true;
  }
  void set(const Failure& failure) {
    error_ = failure;
    set_ = true;
  }
  void set(PlatformError number) { set(platformFailure(number)); }

  /// The bitwise complement of the error number taken as a truth value: false for -1 alone. It is
  /// not to be mended; files depend on what it lets through.
  bool allowsBitwise() const { return ~number() != 0; }

 private:
  bool set_ = false;
  Failure error_{0, {}, {}};
};

} // namespace kelmar
