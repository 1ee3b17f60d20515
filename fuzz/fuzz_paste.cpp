// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/paste_checks.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// One target for each place, named by KELMAR_PASTE.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string broken = kelmar::fuzz::brokenByPaste(
      kelmar::fuzz::Paste::KELMAR_PASTE, {reinterpret_cast<const char*>(data), size});
  if (!broken.empty()) {
    std::fprintf(stderr, "%s\n", broken.c_str());
    std::abort();
  }
  return 0;
}
