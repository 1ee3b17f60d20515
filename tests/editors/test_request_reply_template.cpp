// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/request_ecu.h"
#include "editors/rules/requests/reply_template.h"

namespace kelmar {
namespace {

using testing::RequestEcu;

struct Row {
  const char* sent;
  int initMode;
  const char* before;
  const char* after;
  bool changed;
};

class ReplyTemplate : public ::testing::TestWithParam<Row> {};

TEST_P(ReplyTemplate, BeginsAsThePositiveAnswer) {
  const Row& row = GetParam();
  RequestEcu ecu;
  ecu.target().Parametres()->initMode = row.initMode;
  RequestItem& request = ecu.addRequest("R", row.sent, row.before);
  EXPECT_EQ(NormalizeReplyTemplate(request, ecu.target()), row.changed);
  EXPECT_EQ(request.ReplyBytes->HexText(), row.after);
  EXPECT_FALSE(NormalizeReplyTemplate(request, ecu.target())) << "a second time";
}

INSTANTIATE_TEST_SUITE_P(
    Services, ReplyTemplate,
    ::testing::Values(Row{"1003", 3, "", "5003", true}, Row{"1003", 2, "", "50", true},
                      Row{"10", 3, "", "", false}, Row{"10", 2, "", "50", true},
                      Row{"2180", 2, "", "6180", true}, Row{"22F19001", 2, "62", "62F19001", true},
                      Row{"2180", 2, "7180AABB", "6180AABB", true},
                      Row{"2180", 2, "6180AABB", "6180AABB", false},
                      Row{"2EF190AA", 2, "", "6EF190", true}, Row{"2EF1", 2, "AA", "AA", false},
                      Row{"1101", 2, "", "5101", true}, Row{"11", 2, "", "", false},
                      Row{"300102", 2, "", "7001", true}, Row{"310102", 2, "", "7101", true},
                      Row{"320102", 2, "", "7201", true}, Row{"3B0102", 2, "", "7B01", true},
                      Row{"3E00", 2, "", "7E", true}, Row{"BE", 2, "", "FE", true},
                      Row{"7F", 2, "7F", "7F", false}, Row{"BF", 2, "", "", false},
                      Row{"FF", 2, "AA", "AA", false}, Row{"", 2, "AA", "AA", false}));

TEST(ReplyTemplateBuffers, ARequestWithoutReplyBufferGetsOneWithItsLowerBound) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("R", "3E00");
  request.RequestBytes->setLowerBound(0);
  request.ReplyBytes.reset();
  EXPECT_TRUE(NormalizeReplyTemplate(request, ecu.target()));
  EXPECT_EQ(request.ReplyBytes->HexText(), "7E");
  EXPECT_EQ(request.ReplyBytes->LowerBound(), 0);
}

TEST(ReplyTemplateBuffers, ARequestWithoutBytesIsLeftAlone) {
  RequestEcu ecu;
  RequestItem& request = ecu.addRequest("R");
  request.RequestBytes.reset();
  request.ReplyBytes.reset();
  EXPECT_FALSE(NormalizeReplyTemplate(request, ecu.target()));
  EXPECT_FALSE(request.ReplyBytes);
}

} // namespace
} // namespace kelmar
