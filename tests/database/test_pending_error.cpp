// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"

namespace kelmar::testing {
namespace {

TEST(PendingError, HoldsTheLastErrorUntilItIsCleared) {
  PendingError pending;
  EXPECT_FALSE(pending.isSet());
  EXPECT_EQ(pending.number(), 0);
  pending.set(7, "source", "text");
  pending.set(TypeMismatch);
  EXPECT_EQ(pending.number(), 13);
  EXPECT_EQ(pending.error().text, "Type mismatch");
  pending.set(1, "s", "t");
  EXPECT_EQ(pending.error().source + pending.error().text, "st");
  EXPECT_EQ(pending.number(), 1);
  pending.clear();
  EXPECT_FALSE(pending.isSet());
  EXPECT_EQ(pending.number(), 0);
}

TEST(PendingError, BitwiseTestLetsAllThroughButMinusOne) {
  PendingError pending;
  EXPECT_TRUE(pending.allowsBitwise());
  for (const int number : {1, 91, 100, -2, 2147483647}) {
    pending.set(number, "", "");
    EXPECT_TRUE(pending.allowsBitwise()) << number;
  }
  pending.set(-1, "", "");
  EXPECT_FALSE(pending.allowsBitwise());
}

TEST(PlatformErrors, AreOneTableOfNumbersAndTexts) {
  EXPECT_STREQ(platformErrorText(MissingObject), "Object not set");
  EXPECT_STREQ(platformErrorText(TypeMismatch), "Type mismatch");
  EXPECT_STREQ(platformErrorText(NumericOverflow), "Overflow");
  EXPECT_STREQ(platformErrorText(SubscriptOutOfRange), "Index out of range");
  EXPECT_STREQ(platformErrorText(KeyExists), "Key exists already");
  EXPECT_EQ(platformFailure(MissingObject).number, 91);
  EXPECT_EQ(platformFailure(TypeMismatch).number, 13);
  EXPECT_EQ(platformFailure(NumericOverflow).number, 6);
  EXPECT_EQ(platformFailure(SubscriptOutOfRange).number, 9);
  EXPECT_EQ(platformFailure(KeyExists, "s").number, 457);
  EXPECT_EQ(platformFailure(KeyExists, "s").source, "s");
}

struct Numbered {
  int number;
};

/// What a collection with the test adds of members whose load leaves these error numbers.
std::string added(MemberTest test, const std::vector<int>& numbers, int refused = 0) {
  std::string text = "<l>";
  for (const int number : numbers)
    text += "<m Name='" + std::to_string(number) + "'/>";
  const Fragment list(text + "</l>");
  LoadContext load;
  std::string kept;
  loadMembers(
      load, list, "m", "Member", test,
      [&](xml::Node node) {
        load.pending.clear();
        const int number = std::stoi(node.attribute("Name").value());
        if (number != 0) load.pending.set(number, "s", "bad");
        return Numbered{number};
      },
      [&](const Numbered& member) {
        if (refused != 0 && member.number == refused) throw Failure(457, "s", "refused");
        kept += std::to_string(member.number) + " ";
      });
  return kept + "| " + std::to_string(load.pending.number()) + " | " +
         std::to_string(load.report().size());
}

TEST(StrictTest, AddsOnlyWhenTheSlotIsEmpty) {
  EXPECT_EQ(added(MemberTest::Strict, {0, 1, 0, -1, 0}), "0 0 0 | 0 | 2");
  EXPECT_EQ(added(MemberTest::Strict, {0, 91}), "0 | 91 | 1") << "the last one's error stays";
}

TEST(BitwiseTest, AddsUnlessTheNumberIsMinusOne) {
  EXPECT_EQ(added(MemberTest::Bitwise, {0, 1, -1, 91, 5}), "0 1 91 5 | 5 | 1");
}

TEST(BothTests, LeaveTheErrorOfTheAddingPending) {
  EXPECT_EQ(added(MemberTest::Bitwise, {0, 7}, 7), "0 | 457 | 1");
  EXPECT_EQ(added(MemberTest::Bitwise, {7, 0}, 7), "0 | 0 | 1") << "cleared by the next member";
}

TEST(TolerantReaders, LeaveTheFieldAndSetTheSlot) {
  const Fragment element(
      "<e text='t' number='5' bad='x' large='3000000000' flag='True' real='2.5'/>");
  LoadContext load;
  std::string text = "before";
  std::int32_t number = -1;
  bool flag = false;
  double real = 0;
  EXPECT_FALSE(readText(load, element, "none", text));
  EXPECT_EQ(text, "before");
  EXPECT_EQ(load.pending.number(), 91);
  EXPECT_TRUE(readText(load, element, "text", text));
  EXPECT_EQ(load.pending.number(), 91) << "a step that succeeds clears nothing";
  EXPECT_FALSE(readNumber(load, element, "bad", number));
  EXPECT_EQ(load.pending.number(), 13);
  EXPECT_FALSE(readNumber(load, element, "large", number));
  EXPECT_EQ(load.pending.number(), 6);
  EXPECT_EQ(number, -1);
  EXPECT_TRUE(readNumber(load, element, "number", number));
  EXPECT_EQ(number, 5);
  EXPECT_FALSE(readBoolean(load, element, "bad", flag));
  EXPECT_TRUE(readBoolean(load, element, "flag", flag));
  EXPECT_TRUE(flag);
  EXPECT_FALSE(readReal(load, element, "bad", real));
  EXPECT_TRUE(readReal(load, element, "real", real));
  EXPECT_EQ(real, 2.5);
  EXPECT_EQ(text, "t");
  EXPECT_EQ(load.report().size(), 4u) << "values that do not convert; a missing one is none";
}

TEST(PendingErrorOfAFile, IsClearedOnEnteringTheNextList) {
  // A duplicate data is behind the last one; requests follow, and clear it.
  Ecu ecu;
  FileText file;
  file.datas = "<Data Name='D'/><Data Name='D'/>";
  EXPECT_EQ(ecu.failureOfLoad(file.text()), "");
}

TEST(PendingErrorOfAFile, LeftByTheLastListFailsTheLoad) {
  const std::string head = "<xml><zem:Target Name='E'><Function Name='F' Address='1'/>";
  const std::string tail = "</zem:Target></xml>";
  const auto failureOf = [&](const std::string& lists) {
    Ecu ecu;
    return ecu.failureOfLoad(head + lists + tail);
  };
  EXPECT_EQ(failureOf("<Datas><Data Name='D'/><Data Name='D'/></Datas>"),
            "457 : Key exists already");
  EXPECT_EQ(failureOf("<Datas><Data/></Datas>"),
            "1 DataItem.loadXml: DataItem.loadXml error : Name not defined");
  EXPECT_EQ(failureOf("<Datas><Data/></Datas><Requests/>"), "");
  EXPECT_EQ(failureOf("<Requests><Request/></Requests>"),
            "1 RequestItem.loadXml: RequestItem.loadXml error : Name not defined");
  EXPECT_EQ(failureOf("<Devices><Device Name='V'/><Device Name='V'/></Devices>"),
            "457 : Key exists already");
  EXPECT_EQ(failureOf("<Devices><Device Name='V'/><Device Name='V'/></Devices><AutoIdents/>"), "");
  EXPECT_EQ(failureOf("<Devices><Device Name='V'><Test/></Device></Devices>"),
            "1 TestItem.loadXml: TestItem.loadXml error : Type not found");
  EXPECT_EQ(
      failureOf("<ds:Categories><Category Name='C'><Screen Name='S'><Display/></Screen></Category>"
                "</ds:Categories>"),
      "1 DisplayItem.loadXml: requestName missing");
}

} // namespace
} // namespace kelmar::testing
