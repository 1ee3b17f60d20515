// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kelmar {

/// Makes stable web addresses for ECUs of the shared data, to be sent to colleagues.
class CECUpermalink {
 public:
  /// Gives the data server's address, or none when the information cannot be had.
  using DataServer = std::function<std::optional<std::string>()>;
  explicit CECUpermalink(DataServer dataServer) : dataServer_(std::move(dataServer)) {}

  // Without a data server the link stays as it was, on purpose without a message.
  void createPermanentLinkForECU(const std::string& ecuName);
  void createPermanentLinkForECUFile(const std::string& fileName);

  /// The last link made. Raises 1 when none was.
  std::string permaLink() const;

 private:
  void make(const char* question, const std::string& value);

  DataServer dataServer_;
  std::string link_;
};

/// Letters, digits and "-_.!~*'()" stay, a blank becomes "+", any other character "%" and its code
/// in hexadecimal, at least two digits: "é" gives "%E9", "€" gives "%20AC".
std::string UrlEncode(std::string_view text);

} // namespace kelmar
