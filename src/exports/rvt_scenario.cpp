// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exports/rvt_scenario.h"

#include "base/failure.h"
#include "xml/writer.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <utility>

// The bench tool wants one test a session. Each reopens the session before every service, so that
// no service sees what the one before it left behind, and ends with the session's own check.

namespace kelmar {

namespace {

struct Session {
  const char* request;
  const char* reply;
  const char* byte;
  const char* testName;
  const char* name;
};

/// The default and the extended session.
using Sessions = Session[2];

constexpr Sessions newScheme = {
    {"1001", "5001", "01", "All services in session $01", "Session $01"},
    {"1003", "5003", "03", "All services in session $03", "Session $03"}};
constexpr Sessions oldScheme = {
    {"1081", "5081", "81", "All services in session $81", "Session $81"},
    {"10C0", "50C0", "C0", "All services in session $C0", "Session $C0"}};

const Sessions& sessionsOf(const TargetItem& target) {
  const RequestItem* testerPresent =
      target.Requests() ? target.Requests()->ItemName("TesterPresent.WithResponse") : nullptr;
  const bool isNew = testerPresent && testerPresent->RequestBytes &&
                     testerPresent->RequestBytes->HexText() == "3E00";
  return isNew ? newScheme : oldScheme;
}

std::string hexOf(std::span<const std::uint8_t> bytes) {
  static constexpr char digits[] = "0123456789ABCDEF";
  std::string text;
  for (const std::uint8_t byte : bytes) {
    text += digits[byte >> 4];
    text += digits[byte & 15];
  }
  return text;
}

/// Leading bytes of the request that the positive reply repeats, the service among them.
std::size_t bytesInReply(std::uint8_t service) {
  switch (service) {
  case 0x10:
  case 0x21:
  case 0x3B:
    return 2;
  case 0x22:
  case 0x2E:
    return 3;
  default:
    return 1;
  }
}

/// How the positive reply begins; empty for an empty request.
std::string startBytesOf(std::span<const std::uint8_t> request) {
  if (request.empty()) return {};
  const auto reply = static_cast<std::uint8_t>(request[0] + 0x40);
  const std::size_t count = std::min(bytesInReply(request[0]), request.size());
  return hexOf({&reply, 1}) + hexOf(request.subspan(1, count - 1));
}

/// Writes one element a line.
class Lines {
 public:
  struct Attribute {
    xml::Name name;
    std::string value;
  };
  using Attributes = std::initializer_list<Attribute>;

  void open(xml::Name element, Attributes attributes) {
    start(element, attributes);
    out_.crLf();
  }
  void empty(xml::Name element, Attributes attributes) {
    start(element, attributes);
    close();
  }
  void close() {
    out_.close();
    out_.crLf();
  }

  void check(const std::string& startBytes, std::int32_t length) {
    empty("Check", {{"startbytes", startBytes}, {"length", std::to_string(length)}});
  }
  void byte(const std::string& value) { empty("byte", {{"min", value}}); }

  /// The name must outlive the lines, as all of xml::Writer::item.
  void nameForFailures(const char* kind, const std::string& name) { out_.item(kind, name); }
  std::string take() { return out_.take(); }

 private:
  void start(xml::Name element, Attributes attributes) {
    out_.open(element);
    for (const auto& [name, value] : attributes)
      out_.attribute(name, value);
  }

  xml::Writer out_;
};

/// What opens a session, as a request of the test and as the session that the test stands for.
void writeSessionContent(Lines& out, const Session& session) {
  out.check(session.reply, 2);
  out.byte("10");
  out.byte(session.byte);
}

void writeSessionRequest(Lines& out, const Session& session) {
  out.open("request", {{"name", session.request}, {"delayAfterReply", "500"}});
  writeSessionContent(out, session);
  out.close();
}

void writeRequest(Lines& out, const RequestItem& request) {
  const std::vector<std::uint8_t>& bytes = request.RequestBytes->bytes();
  out.nameForFailures("Request", request.requestName);
  out.open("request", {{"name", request.requestName}, {"delayAfterReply", "0"}});
  out.check(startBytesOf(bytes), request.LengthDatas);
  for (const std::uint8_t& byte : bytes)
    out.byte(hexOf({&byte, 1}));
  out.close();
}

void writeTest(Lines& out, const Session& session,
               const std::vector<const RequestItem*>& requests) {
  out.open("test", {{"name", session.testName}, {"methode", "2"}, {"mode", "PointToPoint"}});
  for (const RequestItem* request : requests) {
    if (!request || !request->RequestBytes) continue;
    writeSessionRequest(out, session);
    writeRequest(out, *request);
  }
  out.open("Session", {{"name", session.name}});
  writeSessionContent(out, session);
  out.close();
  // The templates close the test: what opens the session, and the byte that stands for failure
  // checks.
  writeSessionRequest(out, session);
  out.byte("FF");
  out.close();
}

} // namespace

std::string rvtScenario(const TargetItem& target, const std::vector<const RequestItem*>& requests) {
  Lines out;
  out.nameForFailures("ECU", target.name());
  out.open("Scenario",
           {{"description", "All services tests (" + target.name() + ")"}, {"wait", "500"}});
  for (const Session& session : sessionsOf(target))
    writeTest(out, session, requests);
  out.close();
  return out.take();
}

} // namespace kelmar
