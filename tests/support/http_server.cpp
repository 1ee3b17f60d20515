// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/http_server.h"

#include <QTcpSocket>
#include <QTimer>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace kelmar::support {

namespace {

constexpr int trickleEvery = 20; // ms

std::string loopback(int port, const std::string& path) {
  return "http://127.0.0.1:" + std::to_string(port) + path;
}

QByteArray head(const char* status, qint64 length, const QByteArray& more = {}) {
  return QByteArray("HTTP/1.1 ") + status +
         "\r\nContent-Type: text/xml\r\nContent-Length: " + QByteArray::number(length) +
         "\r\nConnection: close\r\n" + more + "\r\n";
}

} // namespace

HttpServer::HttpServer() {
  if (!listen(QHostAddress::LocalHost)) throw std::runtime_error("no port for the test server");
  connect(this, &QTcpServer::newConnection, this, [this] { greet(); });
}

HttpServer::~HttpServer() = default;

void HttpServer::serve(const QString& path, QByteArray body, Manner manner) {
  pages_.insert(path.toUtf8(), Page{std::move(body), manner});
}

std::string HttpServer::address(const QString& path) const {
  return loopback(serverPort(), path.toStdString());
}

std::string HttpServer::absentAddress() {
  QTcpServer server;
  if (!server.listen(QHostAddress::LocalHost))
    throw std::runtime_error("no port for the test server");
  return loopback(server.serverPort(), "/nothing.xml");
}

void HttpServer::greet() {
  while (QTcpSocket* socket = nextPendingConnection()) {
    socket->setParent(this);
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
      if (!socket->peek(1 << 16).contains("\r\n\r\n")) return;
      const QList<QByteArray> words = socket->readAll().split('\r').front().split(' ');
      if (words.size() < 2) return socket->abort();
      requests_.push_back((words[0] + ' ' + words[1]).toStdString());
      answer(*socket, words[1]);
    });
  }
}

void HttpServer::answer(QTcpSocket& socket, const QByteArray& path) {
  const Page page = pages_.value(path, Page{"nothing here", Manner::NotFound});
  switch (page.manner) {
  case Manner::Whole:
    socket.write(head("200 OK", page.body.size()) + page.body);
    break;
  case Manner::NotFound:
    socket.write(head("404 Not Found", page.body.size()) + page.body);
    break;
  case Manner::Half:
    socket.write(head("200 OK", page.body.size()) + page.body.left(page.body.size() / 2));
    break;
  case Manner::Chunked:
    socket.write("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n" +
                 QByteArray::number(page.body.size(), 16) + "\r\n" + page.body + "\r\n0\r\n\r\n");
    break;
  case Manner::Silent:
    return;
  case Manner::Trickle: {
    socket.write(head("200 OK", 1'000'000));
    auto* timer = new QTimer(&socket);
    connect(timer, &QTimer::timeout, &socket, [&socket] { socket.write("x"); });
    timer->start(trickleEvery);
    return;
  }
  case Manner::Elsewhere:
    socket.write(head("302 Found", 0, "Location: " + page.body + "\r\n"));
    break;
  case Manner::Huge:
    socket.write(head("200 OK", 1'000'000'000'000) + page.body);
    return;
  case Manner::Garbage:
    socket.write("no web server at all\r\n\r\n");
    break;
  }
  socket.disconnectFromHost();
}

FullServer::FullServer() {
  listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in where{};
  where.sin_family = AF_INET;
  where.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof where;
  auto* address = reinterpret_cast<sockaddr*>(&where);
  if (listener_ < 0 || ::bind(listener_, address, size) != 0 || ::listen(listener_, 0) != 0 ||
      ::getsockname(listener_, address, &size) != 0)
    throw std::runtime_error("no port for the test server");
  port_ = ntohs(where.sin_port);
  // Nobody accepts: what is beyond the queue waits for an answer that does not come.
  for (int i = 0; i < 4; ++i) {
    const int client = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    ::connect(client, address, size);
    waiting_.push_back(client);
  }
}

FullServer::~FullServer() {
  for (const int client : waiting_)
    ::close(client);
  ::close(listener_);
}

std::string FullServer::address() const {
  return loopback(port_, "/waiting.xml");
}

} // namespace kelmar::support
