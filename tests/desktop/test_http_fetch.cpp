// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "desktop/http_fetch.h"
#include "support/http_server.h"

#include <gtest/gtest.h>

using namespace kelmar;
using desktop::HttpFetch;
using support::FullServer;
using support::HttpServer;
using Manner = HttpServer::Manner;

namespace {

std::string failureOf(HttpFetch& fetch, const std::string& url) {
  try {
    fetch.get(url);
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number, FileAccessFailed);
    EXPECT_EQ(failure.text.rfind("Cannot read " + url + ": ", 0), 0u) << failure.text;
    return failure.text.substr(("Cannot read " + url + ": ").size());
  }
  return "no failure";
}

class HttpFetchTest : public testing::Test {
 protected:
  HttpServer server;
  HttpFetch fetch;
  HttpFetch hasty{{.connectMs = 200, .totalMs = 400, .bytes = 1000}};
};

TEST_F(HttpFetchTest, GivesTheDocumentByteForByte) {
  const QByteArray body = QByteArray::fromHex("EFBBBF") + "<a>\r\n\0</a>";
  server.serve("/ecu.xml", body);
  EXPECT_EQ(fetch.get(server.address("/ecu.xml")), body.toStdString());
  EXPECT_EQ(server.requests(), std::vector<std::string>{"GET /ecu.xml"});
}

TEST_F(HttpFetchTest, GivesAnEmptyDocumentAndABigOne) {
  server.serve("/empty", "");
  server.serve("/big", QByteArray(5 << 20, 'x'));
  EXPECT_EQ(fetch.get(server.address("/empty")), "");
  EXPECT_EQ(fetch.get(server.address("/big")).size(), 5u << 20);
}

TEST_F(HttpFetchTest, BlanksInAnAddressAreEscaped) {
  server.serve("/my%20ecu.xml", "<a/>");
  EXPECT_EQ(fetch.get(server.address("/my ecu.xml")), "<a/>");
}

TEST_F(HttpFetchTest, AnAbsentServerIsNamed) {
  const std::string address = HttpServer::absentAddress();
  EXPECT_EQ(failureOf(fetch, address),
            "no server answers at " + address.substr(7, address.find('/', 7) - 7));
}

TEST_F(HttpFetchTest, ADocumentThatIsNotThereIsSaidWithItsStatus) {
  EXPECT_EQ(failureOf(fetch, server.address("/absent.xml")), "the server answered 404 Not Found");
}

TEST_F(HttpFetchTest, HalfADocumentIsNoDocument) {
  server.serve("/half", QByteArray(1000, 'x'), Manner::Half);
  EXPECT_EQ(failureOf(fetch, server.address("/half")), "cut off after 500 of 1000 bytes");
}

TEST_F(HttpFetchTest, ADocumentWithoutAnnouncedLengthIsReadWhole) {
  server.serve("/chunked", QByteArray(1000, 'x'), Manner::Chunked);
  EXPECT_EQ(fetch.get(server.address("/chunked")), std::string(1000, 'x'));
}

TEST_F(HttpFetchTest, AServerThatIsSilentIsLeftAfterTheTime) {
  server.serve("/silent", "", Manner::Silent);
  EXPECT_EQ(failureOf(hasty, server.address("/silent")), "not received within 0.4 seconds");
}

TEST_F(HttpFetchTest, AServerThatTricklesIsLeftAfterTheTime) {
  HttpFetch patient{{.connectMs = 200, .totalMs = 1000}};
  server.serve("/slow", "", Manner::Trickle);
  EXPECT_EQ(failureOf(patient, server.address("/slow")), "not received within 1 seconds");
}

TEST_F(HttpFetchTest, AConnectionThatDoesNotComeAboutIsLeftEarlier) {
  const FullServer full;
  EXPECT_EQ(failureOf(hasty, full.address()), "no connection to the server within 0.2 seconds");
}

TEST_F(HttpFetchTest, TheLimitsAreTenSecondsToConnectAndThirtyInAll) {
  const HttpFetch::Limits limits;
  EXPECT_EQ(limits.connectMs, 10'000);
  EXPECT_EQ(limits.totalMs, 30'000);
  EXPECT_EQ(limits.bytes, 512ll * 1024 * 1024);
}

TEST_F(HttpFetchTest, TooMuchIsRefusedWhetherAnnouncedOrNot) {
  server.serve("/huge", "x", Manner::Huge);
  EXPECT_EQ(failureOf(fetch, server.address("/huge")), "larger than the limit of 536870912 bytes");
  server.serve("/much", QByteArray(2000, 'x'), Manner::Chunked);
  EXPECT_EQ(failureOf(hasty, server.address("/much")), "larger than the limit of 1000 bytes");
}

TEST_F(HttpFetchTest, FollowsToAnotherWebAddressButToNoFile) {
  server.serve("/there", "<there/>");
  server.serve("/here", QByteArray::fromStdString(server.address("/there")), Manner::Elsewhere);
  EXPECT_EQ(fetch.get(server.address("/here")), "<there/>");
  server.serve("/trap", "file:///etc/hostname", Manner::Elsewhere);
  EXPECT_NE(failureOf(fetch, server.address("/trap")), "no failure");
  server.serve("/round", QByteArray::fromStdString(server.address("/round")), Manner::Elsewhere);
  EXPECT_NE(failureOf(fetch, server.address("/round")), "no failure");
}

TEST_F(HttpFetchTest, WhatIsNoWebServerGivesAFailure) {
  server.serve("/garbage", "", Manner::Garbage);
  EXPECT_NE(failureOf(fetch, server.address("/garbage")), "no failure");
}

TEST_F(HttpFetchTest, OnlyWebAddressesAreAsked) {
  for (const char* url : {"file:///etc/hostname", "ftp://127.0.0.1/a", "/etc/hostname", "",
                          "http:", "http://", "data:text/xml,<a/>"})
    EXPECT_EQ(failureOf(fetch, url), "not an address of a web server") << url;
}

TEST_F(HttpFetchTest, WorksAgainAfterAFailure) {
  server.serve("/ecu.xml", "<a/>");
  server.serve("/half", QByteArray(100, 'x'), Manner::Half);
  EXPECT_NE(failureOf(fetch, server.address("/half")), "no failure");
  EXPECT_EQ(fetch.get(server.address("/ecu.xml")), "<a/>");
}

} // namespace
