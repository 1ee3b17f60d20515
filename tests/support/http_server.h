// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QTcpServer>

#include <string>
#include <vector>

namespace kelmar::support {

/// A small HTTP server on loopback that answers as well or as badly as it is told. It lives in the
/// event loop of the test.
class HttpServer : public QTcpServer {
 public:
  enum class Manner {
    Whole,
    NotFound,  ///< 404, the body below it
    Half,      ///< the length of the whole, then half of it and the end of the connection
    Chunked,   ///< whole, but its length is not announced
    Silent,    ///< takes the question and never answers
    Trickle,   ///< head at once, then a byte now and then, for ever
    Elsewhere, ///< 302 to the body, taken as an address
    Huge,      ///< claims to hold a thousand gigabytes
    Garbage,   ///< no HTTP at all
  };

  /// Raises std::runtime_error when there is no free port.
  HttpServer();
  ~HttpServer() override;

  /// `path` begins with "/". Any other path is answered with 404.
  void serve(const QString& path, QByteArray body, Manner manner = Manner::Whole);
  std::string address(const QString& path) const;
  /// Requests so far, as "GET /path".
  const std::vector<std::string>& requests() const { return requests_; }

  /// An address at which nothing listens.
  static std::string absentAddress();

 private:
  struct Page {
    QByteArray body;
    Manner manner;
  };
  void greet();
  void answer(QTcpSocket& socket, const QByteArray& path);

  QHash<QByteArray, Page> pages_;
  std::vector<std::string> requests_;
};

/// A listener whose queue is full, so that no connection to it comes about.
class FullServer {
 public:
  FullServer();
  ~FullServer();
  FullServer(const FullServer&) = delete;
  FullServer& operator=(const FullServer&) = delete;
  std::string address() const;

 private:
  int port_ = 0;
  int listener_ = -1;
  std::vector<int> waiting_;
};

} // namespace kelmar::support
