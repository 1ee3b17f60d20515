// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/request_ecu.h"
#include "editors/rules/requests/request_fields.h"
#include "editors/rules/requests/request_rows.h"

namespace kelmar {
namespace {

using testing::RequestEcu;

TEST(RequestFields, AnEmptyPageHasLengthOneAndNoBoxChecked) {
  const RequestFields empty;
  EXPECT_EQ(empty.LengthDatas, 1);
  EXPECT_EQ(empty.ShiftBytesCount, 0);
  EXPECT_FALSE(empty.AccesTous || empty.AccesUsine || empty.AccesApresVente || empty.AccesEtudes ||
               empty.AccesConstructeur || empty.LgVariable || empty.ManuelSend ||
               empty.DossierMaintenabilite);
}

TEST(RequestFields, WhatIsAppliedIsReadBack) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("Read");
  RequestFields fields{.Commentaire = "two\r\nlines",
                       .AccesEtudes = true,
                       .AccesUsine = true,
                       .LgVariable = true,
                       .ManuelSend = true,
                       .LengthDatas = 12,
                       .ShiftBytesCount = 3,
                       .RequestBytes = "22F190",
                       .ReplyBytes = "62F190"};
  EXPECT_FALSE(applyFields(fields, request));
  EXPECT_EQ(fieldsOf(request), fields);
  EXPECT_FALSE(request.AccesTous);
  EXPECT_TRUE(request.AccesUsine);
}

TEST(RequestFields, ABadRequestFrameIsRefusedLastOfAllSoTheCommentHasReachedTheItem) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("Read", "2180", "61");
  RequestFields fields = fieldsOf(request);
  fields.Commentaire = "typed";
  fields.RequestBytes = "218";
  fields.ReplyBytes = "6180";
  const auto bad = applyFields(fields, request);
  ASSERT_TRUE(bad);
  EXPECT_EQ(bad->field, BadFrame::Field::RequestBytes);
  EXPECT_EQ(bad->failure.number, 1);
  EXPECT_EQ(bad->failure.text, "Bad request bytes");
  EXPECT_EQ(request.Commentaire, "typed");
  EXPECT_EQ(request.RequestBytes->HexText(), "2180");
  EXPECT_EQ(request.ReplyBytes->HexText(), "61");
}

TEST(RequestFields, ABadReplyFrameLeavesTheNewRequestFrame) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("Read", "2180", "61");
  RequestFields fields = fieldsOf(request);
  fields.RequestBytes = "2181";
  fields.ReplyBytes = "6x";
  const auto bad = applyFields(fields, request);
  ASSERT_TRUE(bad);
  EXPECT_EQ(bad->field, BadFrame::Field::ReplyBytes);
  EXPECT_EQ(bad->failure.text, "Bad reply bytes");
  EXPECT_EQ(request.RequestBytes->HexText(), "2181");
  EXPECT_EQ(request.ReplyBytes->HexText(), "61");
}

TEST(RequestFields, ARequestWithoutBuffersGetsThem) {
  RequestItem request;
  RequestFields fields;
  fields.RequestBytes = "3E00";
  EXPECT_FALSE(applyFields(fields, request));
  EXPECT_EQ(request.RequestBytes->HexText(), "3E00");
  EXPECT_EQ(request.ReplyBytes->Length(), 0);
}

TEST(RequestLength, CountsPairsAndSaysByteBelowTwo) {
  EXPECT_EQ(requestLengthText(""), "(0 byte)");
  EXPECT_EQ(requestLengthText("2"), "(0 byte)");
  EXPECT_EQ(requestLengthText("21"), "(1 byte)");
  EXPECT_EQ(requestLengthText("218"), "(1 byte)");
  EXPECT_EQ(requestLengthText("2180"), "(2 bytes)");
}

TEST(FrameText, OddAndForeignCharactersAreNone) {
  EXPECT_TRUE(isFrameText(""));
  EXPECT_TRUE(isFrameText("3e00"));
  EXPECT_FALSE(isFrameText("3E0"));
  EXPECT_FALSE(isFrameText("3E 00"));
}

TEST(RequestRow, ShowsNameBytesAndCommentAndTheIconOfItsFlags) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("Read", "2180");
  request.Commentaire = "why";
  EXPECT_EQ(requestCell(request, RequestNameColumn), "Read");
  EXPECT_EQ(requestCell(request, SendBytesColumn), "2180");
  EXPECT_EQ(requestCell(request, RequestCommentColumn), "why");
  EXPECT_EQ(requestIcon(request), "none");
  request.ManuelSend = true;
  EXPECT_EQ(requestIcon(request), "manual");
  request.DossierMaintenabilite = true;
  EXPECT_EQ(requestIcon(request), "dmmanual");
  request.ManuelSend = false;
  EXPECT_EQ(requestIcon(request), "dm");
  request.RequestBytes.reset();
  EXPECT_EQ(requestCell(request, SendBytesColumn), "");
  EXPECT_EQ(requestCountText(3), "3 request(s)");
}

TEST(RequestFinding, StrayBlanksHideTheServiceByte) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("Read  all");
  ecu.place(request, "A", false, 1);
  EXPECT_EQ(findingOf(request, ecu.target()), RequestFinding::StraySpaces);
  EXPECT_EQ(findingToolTip(RequestFinding::StraySpaces),
            "Request name has leading or trailing space, or has multiple spaces");
  EXPECT_EQ(findingText(RequestFinding::StraySpaces), findingToolTip(RequestFinding::StraySpaces));
}

TEST(RequestFinding, TheFirstPositionAtByteOneDecides) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("Read");
  EXPECT_EQ(findingOf(request, ecu.target()), RequestFinding::None);
  ecu.place(request, "A", true, 2);
  EXPECT_EQ(findingOf(request, ecu.target()), RequestFinding::None);
  ecu.place(request, "B", false, 1);
  ecu.place(request, "C", true, 1);
  EXPECT_EQ(findingOf(request, ecu.target()), RequestFinding::DataOnServiceByte);
  request.DataPositions->ItemName("B")->param = true;
  EXPECT_EQ(findingOf(request, ecu.target()), RequestFinding::ParameterOnServiceByte);
  EXPECT_EQ(findingToolTip(RequestFinding::ParameterOnServiceByte),
            "Warning : There is parameter on service code.");
  EXPECT_EQ(findingToolTip(RequestFinding::DataOnServiceByte),
            "Warning : There is data on service code.");
  EXPECT_EQ(findingText(RequestFinding::ParameterOnServiceByte),
            "Request with parameter on service byte. It's dangerous to put parameter on service "
            "code. Use parameter on field that can be changed by users.");
  EXPECT_EQ(findingText(RequestFinding::DataOnServiceByte),
            "Request with data on 1st byte. It's useless to inform this byte which is "
            "automatically controlled by Omnikor to verify the conformity with the protocol.");
  EXPECT_EQ(findingText(RequestFinding::None), "");
}

TEST(RequestFinding, Addresses0And255TellNothingOfTheServiceByte) {
  for (const int address : {0, 255}) {
    RequestEcu ecu;
    RequestItem& request = ecu.addRequest("Read");
    ecu.place(request, "A", true, 1);
    ecu.target().setAddress(address);
    EXPECT_EQ(findingOf(request, ecu.target()), RequestFinding::None) << address;
  }
}

} // namespace
} // namespace kelmar
