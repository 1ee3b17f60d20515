// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelmar::fuzz {

/// What became of one input.
struct Outcome {
  enum class Kind {
    LoadRefused, ///< with a Failure, as it should be
    SaveRefused, ///< loaded, but holds what cannot be written
    RoundTrip,   ///< loaded, saved, loaded and saved again
  };
  Kind kind = Kind::LoadRefused;
  std::string firstSave;     ///< empty unless RoundTrip
  std::string brokenPromise; ///< empty, or what did not hold
};

/// Loads the bytes of a file, saves the model, loads that and saves again, and the same over the
/// other encodings. Nothing is written to the disk and no network is touched. What must not happen
/// is in `brokenPromise`; an exception that is no Failure leaves.
Outcome loadSaveLoad(std::string_view file);

/// The same file once as it is and once with white space behind it, so that it is read in the way
/// of large files: both must be refused, or both give the same text. Empty, or what did not hold.
std::string largeLoadDiffers(std::string_view file);

} // namespace kelmar::fuzz
