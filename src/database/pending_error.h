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
  int number() const { return !set_ ? 0 : plain_ != 0 ? plain_ : error_.number; }
  Failure error() const {
    return plain_ != 0 ? platformFailure(static_cast<PlatformError>(plain_)) : error_;
  }

  void clear() { set_ = false; }
  void set(int number, std::string source, std::string text) {
    set(Failure(number, std::move(source), std::move(text)));
  }
  void set(const Failure& failure) {
    error_ = failure;
    plain_ = 0;
    set_ = true;
  }
  /// Cheap: optional attributes set the slot all the time.
  void set(PlatformError number) {
    plain_ = number;
    set_ = true;
  }

  /// The bitwise complement of the error number taken as a truth value: false for -1 alone. It is
  /// not to be mended; files depend on what it lets through.
  bool allowsBitwise() const { return ~number() != 0; }

 private:
  bool set_ = false;
  int plain_ = 0;
  Failure error_{0, {}, {}};
};

} // namespace kelmar
