// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/rules/ecu_head.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kelmar {

/// What a real ECU says of itself.
struct Identification {
  std::int32_t function = 0; ///< function address
  std::int32_t protocol = 0; ///< number of the search, see protocolFits
  std::int32_t diagVersion = 0;
  std::string supplier, soft, version;
};

// How a file fits, the lower the better. A file is looked at only when its function address is that
// of the identification; then each of its AutoIdents is compared with it, and the best one counts:
//
//   code | diag version | supplier | software | version | meaning
//   -----+--------------+----------+----------+---------+-------------------------------------------
//     0  | same         | same     | same     | same    | exact
//     1  |      it is the only file of this function    | whatever it says, but not exact
//     2  | same         | same     | same     | differs | another version of the software
//     3  | same         | same     | differs  | any     | another software
//     4  | differs      | same     | same     | same    | another diagnostic version
//     5  | differs      | same     | same     | differs | ... and another version of the software
//     6  | differs      | same     | differs  | any     | ... and another software
//   none | any          | differs  | any      | any     | no match by this AutoIdent
//
// 10 is added when the protocol of the file does not fit the number of the search. Code 1 counts
// the files of the function in the whole tree, whatever their protocol. Supplier, software and
// version are compared without regard to case, since the search panel gives them in upper case.

inline constexpr int uniqueCode = 1;
inline constexpr int otherProtocol = 10;

/// Numbers of the search: 0 any protocol, 1 CAN and CAN-FD, 2 KWP2000 FastInit monopoint,
/// 3 multipoint, 4 KWP2000 5 baud type 1, 5 type 2, 6 ISO8, 7 CAN messaging, 8 CAN-FD or IP, 9 IP;
/// no protocol fits any other. A file of ISO8 fits 2 too: that is how the editor has it once it is
/// open.
bool protocolFits(EcuProtocol protocol, std::int32_t number);

/// The code of a file of this function, apart from code 1: 0, 2 to 6, or 10 more. None when no
/// AutoIdent fits.
std::optional<int> identificationCode(const EcuHead& head, const Identification& wanted);

struct IdentificationMatch {
  int code = -1;       ///< -1: no match
  std::string address; ///< empty: no match
  bool cancelled = false;

  bool found() const { return !address.empty(); }
};

/// Called after each file; false ends the search without a match.
using SearchProgress = std::function<bool(std::size_t done, std::size_t total)>;

/// The file with the lowest code; of several the one whose path is first, byte by byte. Files
/// without a head count as if they were not there. Never raises by itself; what `progress` raises
/// passes through.
IdentificationMatch findByIdentification(std::vector<std::string> files,
                                         const Identification& wanted,
                                         const SearchProgress& progress = {});

} // namespace kelmar
