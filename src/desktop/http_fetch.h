// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/machine.h"

#include <cstdint>
#include <memory>

class QNetworkAccessManager;

namespace kelmar::desktop {

/// Documents over "http:" and "https:", into memory only. The window paints while it waits, but
/// takes no input.
class HttpFetch : public platform::Fetch {
 public:
  struct Limits {
    int connectMs = 10'000;           ///< until the connection stands
    int totalMs = 30'000;             ///< until the last byte is here
    std::int64_t bytes = 512ll << 20; ///< size of a document
  };
  HttpFetch();
  explicit HttpFetch(Limits limits);
  ~HttpFetch() override;

  /// The body of the answer. Raises Failure FileAccessFailed that names the address and what went
  /// wrong: another kind of address, no server, a time limit, a status that is not 200, a body
  /// that ends before its announced length or exceeds the limit. A body of unannounced length that
  /// ends early may pass; who reads the document must judge whether it is whole.
  std::string get(const std::string& url) override;

 private:
  Limits limits_;
  std::unique_ptr<QNetworkAccessManager> manager_; // made at the first use: it costs start-up time
};

} // namespace kelmar::desktop
