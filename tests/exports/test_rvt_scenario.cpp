// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "base/text.h"
#include "exports/rvt_scenario.h"
#include "xml/document.h"

#include <gtest/gtest.h>

namespace kelmar {
namespace {

struct RvtScenario : testing::Test {
  TargetItem target;
  std::vector<const RequestItem*> selected;

  RvtScenario() {
    target.setName("Engine");
    target.setRequests(std::make_shared<RequestItems>());
  }

  RequestItem& add(const std::string& name, const std::string& hex, int replyLength = 1) {
    RequestItem& request = *target.Requests()->Add(name);
    request.RequestBytes = std::make_shared<FrameBuffer>();
    request.RequestBytes->setHexText(hex);
    request.LengthDatas = replyLength;
    return request;
  }
  void select(const std::string& name, const std::string& hex, int replyLength = 1) {
    selected.push_back(&add(name, hex, replyLength));
  }

  std::string document() const { return rvtScenario(target, selected); }
  /// The value at the path, an attribute say.
  std::string at(const std::string& path) const {
    xml::Document read;
    EXPECT_TRUE(read.loadXML(document())) << read.parseError().reason;
    return read.selectSingleNode(path).attribute().value();
  }
  std::size_t count(const std::string& path) const {
    xml::Document read;
    EXPECT_TRUE(read.loadXML(document())) << read.parseError().reason;
    return read.selectNodes(path).size();
  }
  /// `startbytes` of a request with these bytes.
  std::string startBytes(const std::string& hex) {
    selected.clear();
    target.setRequests(std::make_shared<RequestItems>());
    select("Probe", hex);
    EXPECT_EQ(count("/Scenario/test/request[@name='Probe']/Check/@startbytes | "
                    "/Scenario/test/request[@name='Probe']"),
              2u);
    return at("/Scenario/test[1]/request[@name='Probe']/Check/@startbytes");
  }
};

TEST_F(RvtScenario, Document_HasOneElementALine) {
  target.setName("Engine <1>");
  select("Read.Speed", "21A0", 4);
  const std::string opening = "<test name=\"All services in session $";
  EXPECT_EQ(split(document(), "\r\n"),
            (std::vector<std::string>{
                "<Scenario description=\"All services tests (Engine &lt;1>)\" wait=\"500\">",
                opening + "81\" methode=\"2\" mode=\"PointToPoint\">",
                "<request name=\"1081\" delayAfterReply=\"500\">",
                "<Check startbytes=\"5081\" length=\"2\"/>",
                "<byte min=\"10\"/>",
                "<byte min=\"81\"/>",
                "</request>",
                "<request name=\"Read.Speed\" delayAfterReply=\"0\">",
                "<Check startbytes=\"61A0\" length=\"4\"/>",
                "<byte min=\"21\"/>",
                "<byte min=\"A0\"/>",
                "</request>",
                "<Session name=\"Session $81\">",
                "<Check startbytes=\"5081\" length=\"2\"/>",
                "<byte min=\"10\"/>",
                "<byte min=\"81\"/>",
                "</Session>",
                "<request name=\"1081\" delayAfterReply=\"500\">",
                "<Check startbytes=\"5081\" length=\"2\"/>",
                "<byte min=\"10\"/>",
                "<byte min=\"81\"/>",
                "</request>",
                "<byte min=\"FF\"/>",
                "</test>",
                opening + "C0\" methode=\"2\" mode=\"PointToPoint\">",
                "<request name=\"10C0\" delayAfterReply=\"500\">",
                "<Check startbytes=\"50C0\" length=\"2\"/>",
                "<byte min=\"10\"/>",
                "<byte min=\"C0\"/>",
                "</request>",
                "<request name=\"Read.Speed\" delayAfterReply=\"0\">",
                "<Check startbytes=\"61A0\" length=\"4\"/>",
                "<byte min=\"21\"/>",
                "<byte min=\"A0\"/>",
                "</request>",
                "<Session name=\"Session $C0\">",
                "<Check startbytes=\"50C0\" length=\"2\"/>",
                "<byte min=\"10\"/>",
                "<byte min=\"C0\"/>",
                "</Session>",
                "<request name=\"10C0\" delayAfterReply=\"500\">",
                "<Check startbytes=\"50C0\" length=\"2\"/>",
                "<byte min=\"10\"/>",
                "<byte min=\"C0\"/>",
                "</request>",
                "<byte min=\"FF\"/>",
                "</test>",
                "</Scenario>",
                ""}));
}

TEST_F(RvtScenario, NewScheme_IsThatOfAnEcuWhoseTesterPresentIs3E00) {
  add("TesterPresent.WithResponse", "3E00");
  EXPECT_EQ(at("/Scenario/test[1]/@name"), "All services in session $01");
  EXPECT_EQ(at("/Scenario/test[2]/@name"), "All services in session $03");
  EXPECT_EQ(at("/Scenario/test[1]/Session/@name"), "Session $01");
  EXPECT_EQ(at("/Scenario/test[2]/Session/@name"), "Session $03");
  EXPECT_EQ(at("/Scenario/test[1]/request/@name"), "1001");
  EXPECT_EQ(at("/Scenario/test[2]/request/@name"), "1003");
  EXPECT_EQ(at("/Scenario/test[1]/request/Check/@startbytes"), "5001");
  EXPECT_EQ(at("/Scenario/test[2]/request/Check/@startbytes"), "5003");
  EXPECT_EQ(at("/Scenario/test[1]/Session/byte[2]/@min"), "01");
  EXPECT_EQ(at("/Scenario/test[2]/Session/byte[2]/@min"), "03");
}

TEST_F(RvtScenario, OldScheme_IsThatOfAllOtherEcus) {
  const auto isOld = [&] {
    return at("/Scenario/test[1]/request/@name") == "1081" &&
           at("/Scenario/test[2]/request/@name") == "10C0";
  };
  EXPECT_TRUE(isOld());
  RequestItem& present = add("TesterPresent.WithResponse", "3E01");
  EXPECT_TRUE(isOld());
  present.RequestBytes->setHexText("3E0000");
  EXPECT_TRUE(isOld());
  present.RequestBytes->setHexText("");
  EXPECT_TRUE(isOld());
  present.RequestBytes.reset();
  EXPECT_TRUE(isOld());
  target.setRequests(nullptr);
  EXPECT_TRUE(isOld());
}

TEST_F(RvtScenario, StartBytes_RepeatWhatTheServiceRepeats) {
  EXPECT_EQ(startBytes("2E0102AA"), "6E0102");
  EXPECT_EQ(startBytes("220102"), "620102");
  EXPECT_EQ(startBytes("21A0"), "61A0");
  EXPECT_EQ(startBytes("21A0FF"), "61A0");
  EXPECT_EQ(startBytes("3B8012"), "7B80");
  EXPECT_EQ(startBytes("1003"), "5003");
  EXPECT_EQ(startBytes("3E00"), "7E");
  EXPECT_EQ(startBytes("14FFFFFF"), "54");
}

TEST_F(RvtScenario, StartBytes_OfAShortRequestAreThoseThatAreThere) {
  EXPECT_EQ(startBytes("22"), "62");
  EXPECT_EQ(startBytes("2E01"), "6E01");
  EXPECT_EQ(startBytes("10"), "50");
}

TEST_F(RvtScenario, StartBytes_StayTwoDigitsBeyondFF) {
  EXPECT_EQ(startBytes("C0"), "00");
  EXPECT_EQ(startBytes("FF"), "3F");
}

TEST_F(RvtScenario, EmptyRequest_AddsAnElementWithoutBytes) {
  select("Nothing", "");
  EXPECT_EQ(count("//request[@name='Nothing']"), 2u);
  EXPECT_EQ(count("//request[@name='Nothing']/byte"), 0u);
  EXPECT_EQ(count("//request[@name='Nothing']/Check[@startbytes='' and @length='1']"), 2u);
}

TEST_F(RvtScenario, RequestWithoutBytes_IsSkippedWithItsSessionRequest) {
  select("Missing", "");
  target.Requests()->ItemName("Missing")->RequestBytes.reset();
  const std::string withIt = document();
  selected.clear();
  EXPECT_EQ(withIt, document());
  EXPECT_EQ(count("/Scenario/test/request"), 2u);
}

TEST_F(RvtScenario, EachRequest_StandsBehindItsSessionRequestInTheOrderOfTheSelection) {
  select("Second", "21A1");
  select("First", "21A0");
  xml::Document read;
  ASSERT_TRUE(read.loadXML(document()));
  std::vector<std::string> names;
  for (const xml::Node& request : read.selectNodes("/Scenario/test/request"))
    names.push_back(request.attribute("name").value());
  EXPECT_EQ(names, (std::vector<std::string>{"1081", "Second", "1081", "First", "1081", "10C0",
                                             "Second", "10C0", "First", "10C0"}));
}

TEST_F(RvtScenario, Length_IsTheLeastReplyLength) {
  select("Zero", "21A0", 0);
  select("Long", "21A1", 4095);
  EXPECT_EQ(at("//request[@name='Zero']/Check/@length"), "0");
  EXPECT_EQ(at("//request[@name='Long']/Check/@length"), "4095");
}

TEST_F(RvtScenario, LongRequest_HasAllItsBytes) {
  std::string hex;
  for (int i = 0; i < 4095; ++i)
    hex += "5A";
  select("Download", hex);
  EXPECT_EQ(count("/Scenario/test[1]/request[@name='Download']/byte[@min='5A']"), 4095u);
}

TEST_F(RvtScenario, Names_ReadBackAsTheyAre) {
  select("Température \"<&>\"\t1", "21A0");
  EXPECT_EQ(at("/Scenario/test[1]/request[2]/@name"), "Température \"<&>\"\t1");
}

TEST_F(RvtScenario, NameThatXmlCannotHold_IsRefusedByName) {
  target.setName("Engine\x01");
  try {
    document();
    FAIL() << "it was written";
  } catch (const Failure& failure) {
    EXPECT_NE(failure.text.find("U+0001"), std::string::npos) << failure.text;
  }
  target.setName("Engine");
  select("Read\x02", "21A0");
  try {
    document();
    FAIL() << "it was written";
  } catch (const Failure& failure) {
    EXPECT_NE(failure.text.find("Request 'Read"), std::string::npos) << failure.text;
  }
}

} // namespace
} // namespace kelmar
