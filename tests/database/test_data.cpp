// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"

namespace kelmar::testing {
namespace {

/// A data read from the content of its element.
struct Read {
  explicit Read(const std::string& content) {
    item.loadXml(ecu.db, Fragment("<Data Name='D'>" + content + "</Data>"));
  }
  Ecu ecu;
  DataItem item;
};

/// The content of the element as it is written, without the name.
std::string contentOf(const DataItem& item) {
  const std::string text = fragmentOf(item, "Data");
  const std::size_t start = text.find('>') + 1;
  return text.substr(start, text.size() - start - (sizeof "</Data>" - 1));
}

std::string scaledOf(const DataItem& item) {
  return Ecu::between(contentOf(item), "<Scaled", "/>");
}

std::string namesOfDatas(const DataItems& items) {
  return namesOf(items, [](const DataItem& item) { return item.dataName(); });
}

TEST(NewData, HasItsInitialValues) {
  const DataItem item;
  EXPECT_EQ(item.dataName(), "");
  EXPECT_EQ(item.NumberBits, 8);
  EXPECT_TRUE(item.numerique);
  EXPECT_FALSE(item.liste || item.Signe || item.Ascii);
  EXPECT_TRUE(item.CoeffA == 1.0 && item.CoeffB == 0.0 && item.CoeffC == 1.0);
  EXPECT_EQ(item.Unite + item.DataFormat + item.Mnemo + item.Description + item.Fiche, "");
  EXPECT_EQ(item.DataListes, nullptr);
  EXPECT_EQ(item.parent, nullptr);
}

TEST(DataName, IsTestedOnlyWhenTheParentIsSet) {
  TargetItem target;
  target.datas()->Add("Speed");
  DataItem item;
  item.setDataName("Speed");
  EXPECT_EQ(item.dataName(), "Speed");
  item.parent = &target;
  EXPECT_EQ(Ecu::failureOf([&] { item.setDataName("SPEED"); }),
            "1 DataItem.dataName: Duplicate name (SPEED)");
  EXPECT_EQ(item.dataName(), "Speed") << "the name does not change";
  item.setDataName("Other");
  EXPECT_EQ(item.dataName(), "Other");
  DataItem* member = target.datas()->Item(1);
  member->parent = &target;
  EXPECT_NE(Ecu::failureOf([&] { member->setDataName("Speed"); }), "") << "its own name too";
}

TEST(DataElement, PlainOneHasAnEmptyScaled) {
  DataItem item;
  item.setDataName("D<");
  EXPECT_EQ(fragmentOf(item, "Data"), "<Data Name=\"D&lt;\">\n<Bits>\n<Scaled/>\n</Bits>\n</Data>");
}

TEST(DataElement, AllTextsInTheirOrder) {
  DataItem item;
  item.Description = " a\r\nb ";
  item.Mnemo = "M<";
  item.Fiche = " sheet ";
  EXPECT_EQ(contentOf(item), "\n<Comment><![CDATA[a\r\nb]]></Comment>\n"
                             "<Mnemonic>M&lt;</Mnemonic>\n"
                             "<Description><![CDATA[ sheet ]]></Description>\n"
                             "<Bits>\n<Scaled/>\n</Bits>\n");
  item.Description = "  ";
  EXPECT_EQ(contentOf(item).find("Comment"), std::string::npos);
}

TEST(DataElement, ScaledHasOnlyWhatDiffersFromTheDefault) {
  DataItem item;
  item.NumberBits = 16;
  item.Signe = true;
  item.Unite = "km/h";
  item.CoeffA = 0.5;
  item.CoeffB = -40.0;
  item.CoeffC = 3.0;
  item.DataFormat = "0.0";
  EXPECT_EQ(contentOf(item),
            "\n<Bits count=\"16\" signed=\"1\">\n<Scaled Unit=\"km/h\" Step=\" .5\" "
            "Offset=\"-40\" DivideBy=\" 3\" Format=\"0.0\"/>\n</Bits>\n");
  item.CoeffA = 1.0;
  item.CoeffB = 0.0;
  item.CoeffC = 1.0;
  item.Unite.clear();
  item.DataFormat.clear();
  EXPECT_EQ(scaledOf(item), "");
  item.CoeffA = 0.0;
  EXPECT_EQ(scaledOf(item), " Step=\" 0\"");
}

TEST(DataElement, ListHasALineFeedPerMember) {
  DataItem item;
  item.liste = true;
  EXPECT_EQ(contentOf(item), "\n<Bits>\n<List>\n</List></Bits>\n") << "without a list";
  item.DataListes = std::make_shared<DataListeItems>();
  item.DataListes->Add(1, "On", "");
  item.DataListes->Add(2, "Off", "why");
  item.Unite = "not written";
  EXPECT_EQ(contentOf(item),
            "\n<Bits>\n<List>\n\n<Item Value=\"1\" Text=\"On\"/>\n"
            "<Item Value=\"2\" Text=\"Off\"><![CDATA[why]]></Item></List></Bits>\n");
  item.liste = false;
  EXPECT_EQ(contentOf(item), "\n<Bits>\n<Scaled Unit=\"not written\"/>\n</Bits>\n");
}

TEST(DataElement, BytesHaveNeitherListNorScaledNorSign) {
  DataItem item;
  item.numerique = false;
  item.NumberBits = 32;
  item.Signe = item.liste = true;
  EXPECT_EQ(contentOf(item), "\n<Bytes count=\"4\"/>\n");
  item.Ascii = true;
  EXPECT_EQ(contentOf(item), "\n<Bytes count=\"4\" ascii=\"1\"/>\n");
  item.numerique = true;
  item.liste = item.Signe = false;
  EXPECT_EQ(contentOf(item), "\n<Bits count=\"32\">\n<Scaled/>\n</Bits>\n") << "Bits no ascii";
}

TEST(DataElement, BytesCount4Is32BitsAndIsWrittenAs4) {
  Read read("<Bytes count='4'/>");
  EXPECT_EQ(read.item.NumberBits, 32);
  EXPECT_FALSE(read.item.numerique);
  EXPECT_EQ(contentOf(read.item), "\n<Bytes count=\"4\"/>\n");
}

TEST(DataElement, TwelveBitsOfBytesAreOneAndAHalf) {
  DataItem item;
  item.numerique = false;
  item.NumberBits = 12;
  EXPECT_EQ(contentOf(item), "\n<Bytes count=\"1.5\"/>\n");
  EXPECT_EQ(Read("<Bytes count='1.5'/>").item.NumberBits, 12);
  item.NumberBits = 4;
  EXPECT_EQ(contentOf(item), "\n<Bytes count=\"0.5\"/>\n");
}

TEST(DataRead, BytesCountIsMultipliedBeforeItIsRounded) {
  EXPECT_EQ(Read("<Bytes count='2.5'/>").item.NumberBits, 20);
  EXPECT_EQ(Read("<Bytes count='.0625'/>").item.NumberBits, 0) << "ties to even";
  EXPECT_EQ(Read("<Bytes count='.1875'/>").item.NumberBits, 2);
  EXPECT_EQ(Read("<Bytes/>").item.NumberBits, 8);
  EXPECT_EQ(Read("<Bytes count='2,5'/>").item.NumberBits, 8);
  EXPECT_EQ(Read("<Bytes count='999999999'/>").item.NumberBits, 8) << "overflow";
  EXPECT_TRUE(Read("<Bytes ascii='1'/>").item.Ascii);
}

TEST(DataRead, NeitherBitsNorBytesIsA8BitNumber) {
  Read read("");
  EXPECT_EQ(read.item.NumberBits, 8);
  EXPECT_TRUE(read.item.numerique);
  EXPECT_EQ(contentOf(read.item), "\n<Bits>\n<Scaled/>\n</Bits>\n");
}

TEST(DataRead, BitsWinOverBytes) {
  Read read("<Bytes count='4'/><Bits count='3' signed='1'/>");
  EXPECT_TRUE(read.item.numerique);
  EXPECT_EQ(read.item.NumberBits, 3);
  EXPECT_TRUE(read.item.Signe);
  EXPECT_FALSE(read.item.liste);
}

TEST(DataRead, ResetsWhatTheItemHeld) {
  Ecu ecu;
  DataItem item;
  item.numerique = false;
  item.NumberBits = 99;
  item.liste = item.Signe = item.Ascii = true;
  item.Unite = item.DataFormat = item.Mnemo = item.Fiche = item.Description = "x";
  item.CoeffA = 5.0;
  item.CoeffB = 6.0;
  item.CoeffC = 7.0;
  item.loadXml(ecu.db, Fragment("<Data Name='D'/>"));
  EXPECT_EQ(fragmentOf(item, "Data"), "<Data Name=\"D\">\n<Bits>\n<Scaled/>\n</Bits>\n</Data>");
  EXPECT_FALSE(item.liste || item.Ascii);
}

TEST(DataRead, CommentIsWidenedAndTrimmedWithTheXmlCommentOfOlderFiles) {
  EXPECT_EQ(Read("<Comment> a\nb </Comment><!--c-->").item.Description, "a\r\nb");
  EXPECT_EQ(Read("<!-- a\nb --><!--second-->").item.Description, "a\r\nb") << "trimmed here";
  EXPECT_EQ(Read("<Comment/><!--c-->").item.Description, "");
  EXPECT_EQ(Read("").item.Description, "");
  Read read("<Mnemonic>M</Mnemonic><Description> F\n</Description>");
  EXPECT_EQ(read.item.Mnemo, "M");
  EXPECT_EQ(read.item.Fiche, " F\n") << "neither widened nor trimmed";
}

TEST(DataRead, WithoutNameIsAnErrorAndStopsThere) {
  Ecu ecu;
  DataItem item;
  item.loadXml(ecu.db, Fragment("<Data><Mnemonic>M</Mnemonic></Data>"));
  EXPECT_EQ(ecu.db.loading().pending.number(), 1);
  EXPECT_EQ(ecu.db.loading().pending.error().text, "DataItem.loadXml error : Name not defined");
  EXPECT_EQ(item.Mnemo, "");
}

TEST(DataRead, ClearsThePendingErrorAtItsEnd) {
  Read read("<Bits count='x' signed='y'/>");
  EXPECT_FALSE(read.ecu.db.loading().pending.isSet());
  EXPECT_EQ(read.item.NumberBits, 8);
}

// Coefficients

TEST(Coefficients, SmallStepReadsAsDecimalAndIsWrittenInPlainDigits) {
  Read read("<Bits><Scaled Step='1E-05' Offset='-1E-06'/></Bits>");
  EXPECT_TRUE(read.item.CoeffA.isDecimal());
  EXPECT_TRUE(read.item.CoeffB.isDecimal());
  EXPECT_EQ(scaledOf(read.item), " Step=\" .00001\" Offset=\"-.000001\"");
  Read again("<Bits><Scaled Step=' .00001'/></Bits>");
  EXPECT_EQ(scaledOf(again.item), " Step=\" .00001\"");
}

TEST(Coefficients, OtherStepsReadAsDouble) {
  Read read("<Bits><Scaled Step=' .5' Offset='2.5E3' DivideBy='4'/></Bits>");
  EXPECT_FALSE(read.item.CoeffA.isDecimal());
  EXPECT_FALSE(read.item.CoeffB.isDecimal());
  EXPECT_TRUE(read.item.CoeffC.isDecimal()) << "the divisor is always decimal";
  EXPECT_EQ(scaledOf(read.item), " Step=\" .5\" Offset=\" 2500\" DivideBy=\" 4\"");
}

TEST(Coefficients, SmallDivisorGoesToTheOffset) {
  Read read("<Bits><Scaled Offset='7' DivideBy='1E-05'/></Bits>");
  EXPECT_TRUE(read.item.CoeffC == 1.0);
  EXPECT_EQ(scaledOf(read.item), " Offset=\" .00001\"");
}

TEST(Coefficients, WritersTurnSmallNumbersIntoDecimals) {
  DataItem item;
  item.CoeffA = 0.00001;
  item.CoeffB = 0.0001;
  item.CoeffC = 1e20;
  EXPECT_TRUE(item.CoeffA.isDecimal());
  EXPECT_FALSE(item.CoeffB.isDecimal());
  EXPECT_FALSE(item.CoeffC.isDecimal());
  EXPECT_EQ(scaledOf(item), " Step=\" .00001\" Offset=\" .0001\" DivideBy=\" 1E+20\"");
}

TEST(Coefficients, TheSmallestNumbersKeepTheirDigits) {
  EXPECT_EQ(Coefficient(1.25e-30).toNumberText(), " ." + std::string(29, '0') + "125");
  Read read("<Bits><Scaled Step='1.23456789E-25' Offset='-9.87654321E-22'/></Bits>");
  EXPECT_TRUE(read.item.CoeffA == 1.23456789e-25);
  EXPECT_TRUE(read.item.CoeffB == -9.87654321e-22);
}

TEST(Coefficients, TextWithoutANumberIsZeroAndACommaEndsIt) {
  Read read("<Bits><Scaled Step='x' Offset='1,5'/></Bits>");
  EXPECT_TRUE(read.item.CoeffA == 0.0);
  EXPECT_TRUE(read.item.CoeffB == 1.0);
}

TEST(Coefficients, DefaultsAreNotWritten) {
  Read read("<Bits><Scaled Step='1' Offset='0' DivideBy='1'/></Bits>");
  EXPECT_EQ(contentOf(read.item), "\n<Bits>\n<Scaled/>\n</Bits>\n");
}

TEST(Coefficients, ADivisorBeyondTheDecimalLeavesTheFieldAndIsReported) {
  Ecu ecu;
  FileText file;
  file.datas = "<Data Name='D'><Bits><Scaled DivideBy='1E40'/></Bits></Data>";
  ecu.load(file);
  EXPECT_TRUE(ecu.target().datas()->Item(1)->CoeffC == 1.0);
  EXPECT_EQ(ecu.report(), "Value|DivideBy|Datas/Data[D]/Bits/Scaled|7|Overflow\n");
}

TEST(NumberText, HalfIsABlankAndPointFive) {
  EXPECT_EQ(NumberToText(0.5), " .5");
  EXPECT_EQ(TextToNumber(" .5"), 0.5);
}

// The collection

TEST(DataItemsKeys, IgnoreCaseAlsoBeyondAscii) {
  DataItems items;
  DataItem* item = items.Add("Température É");
  EXPECT_EQ(items.ItemName("TEMPÉRATURE é"), item);
  EXPECT_EQ(items.Item("ktempérature É"), item);
  EXPECT_EQ(items.ItemName("Temperature E"), nullptr);
  EXPECT_EQ(Ecu::failureOf([&] { items.Add("température É"); }), "457 : Key exists already");
  EXPECT_EQ(items.Count(), 1);
  EXPECT_EQ(Ecu::failureOf([&] { items.Item("none"); }), "9 : Index out of range");
  EXPECT_EQ(Ecu::failureOf([&] { items.Item(0); }), "9 : Index out of range");
  EXPECT_EQ(Ecu::failureOf([&] { items.Item(2); }), "9 : Index out of range");
  EXPECT_EQ(Ecu::failureOf([&] { items.Remove(2); }), "9 : Index out of range");
}

TEST(DataItemsLoad, KeepsTheOrderOfTheFileAndSetsTheParent) {
  Ecu ecu;
  FileText file;
  file.datas = "<Data Name='b'/><Data Name='a'/><Other/><Data Name='c'/>";
  ecu.load(file);
  EXPECT_EQ(namesOfDatas(*ecu.target().datas()), "b a c");
  EXPECT_EQ(ecu.target().datas()->Item(2)->parent, &ecu.target());
}

TEST(DataItemsLoad, KeepsADataWithoutNameAndLosesTheSecondOfAName) {
  Ecu ecu;
  FileText file;
  file.datas = "<Data/>\n<Data Name='D'><Mnemonic>1</Mnemonic></Data>\n"
               "<Data Name='d'><Mnemonic>2</Mnemonic></Data>\n<Data/>\n<Data Name='e'/>";
  ecu.load(file);
  EXPECT_EQ(namesOfDatas(*ecu.target().datas()), " D e");
  EXPECT_EQ(ecu.target().datas()->ItemName(""), ecu.target().datas()->Item(1));
  EXPECT_EQ(ecu.target().datas()->ItemName("D")->Mnemo, "1");
  EXPECT_EQ(ecu.report(), "Data|d|Datas/Data[d]|9|Key exists already\n"
                          "Data||Datas/Data|10|Key exists already\n");
}

TEST(AddDataSorted, PutsBehindTheLastThatSortsAfter) {
  const auto sorted = [](std::vector<std::string> names, const std::string& added) {
    DataItems items;
    for (const std::string& name : names)
      items.Add(name);
    auto item = std::make_shared<DataItem>();
    item->setDataName(added);
    items.AddDataSorted(item);
    return namesOfDatas(items);
  };
  EXPECT_EQ(sorted({"a", "c", "d"}, "b"), "a c b d") << "roughly, not strictly, ordered";
  EXPECT_EQ(sorted({"a", "b"}, "c"), "a b c");
  EXPECT_EQ(sorted({}, "c"), "c");
  EXPECT_EQ(sorted({"b"}, "a"), "a b");
  EXPECT_EQ(sorted({"c", "a"}, "b"), "b c a");
  EXPECT_EQ(sorted({"a"}, "B"), "B a") << "ordinal";
  EXPECT_EQ(sorted({"é"}, "z"), "z é");
}

TEST(AddDataSorted, RefusesTheExactNameAndTheKey) {
  DataItems items;
  items.Add("a");
  const auto item = std::make_shared<DataItem>();
  item->setDataName("a");
  EXPECT_EQ(Ecu::failureOf([&] { items.AddDataSorted(item); }),
            "1 DataItems.AddDataSorted: Duplicate data name 'a'");
  item->setDataName("A");
  EXPECT_TRUE(Ecu::failureOf([&] { items.AddDataSorted(item); }).starts_with("457 "));
  EXPECT_EQ(items.Count(), 1);
}

TEST(DataRename, MovesToTheSortedPlaceUnderTheNewKey) {
  DataItems items;
  for (const char* name : {"a", "c", "d", "e"})
    items.Add(name);
  DataItem* item = items.Item(4);
  items.rename(item, "b");
  EXPECT_EQ(namesOfDatas(items), "a c b d");
  EXPECT_EQ(items.ItemName("B"), item);
  EXPECT_EQ(items.ItemName("e"), nullptr);
}

TEST(DataRename, OfAnothersNameRaisesAndOfItsOwnDoesNothing) {
  DataItems items;
  for (const char* name : {"z", "a"})
    items.Add(name);
  DataItem* item = items.Item(1);
  EXPECT_EQ(Ecu::failureOf([&] { items.rename(item, "A"); }),
            "1 DataItems.rename: Duplicate data (A)");
  items.rename(item, "z");
  EXPECT_EQ(namesOfDatas(items), "z a") << "it stays where it is";
  items.rename(item, "Z");
  EXPECT_EQ(namesOfDatas(items), "Z a") << "a change of case goes on, and sorts";
  EXPECT_EQ(items.ItemName("z"), item);
}

TEST(DataRename, OfAnItemThatIsNoMemberDoesNothing) {
  DataItems items;
  items.Add("a");
  DataItem stranger;
  stranger.setDataName("s");
  items.rename(&stranger, "t");
  EXPECT_EQ(namesOfDatas(items), "a");
  EXPECT_EQ(stranger.dataName(), "s");
}

TEST(DataDelete, GoesByIdentityAndClearsTheItem) {
  TargetItem target;
  DataItems items;
  items.Add("a")->parent = &target;
  items.Add("b");
  const auto kept = items.shared(items.Item(1));
  DataItem stranger;
  stranger.setDataName("b");
  items.deleteItem(&stranger);
  EXPECT_EQ(items.Count(), 2) << "not a member: nothing";
  items.deleteItem(kept.get());
  EXPECT_EQ(namesOfDatas(items), "b");
  EXPECT_EQ(kept->parent, nullptr);
  EXPECT_EQ(kept->dataName(), "a") << "the fields stay";
  EXPECT_EQ(items.ItemName("a"), nullptr);
  items.clear();
  EXPECT_EQ(items.Count(), 0);
  EXPECT_EQ(items.ItemName("b"), nullptr);
}

TEST(DataClone, CopiesAllFieldsAndTheListOnlyWhenShown) {
  TargetItem target;
  target.datas()->Add("D");
  Read read("<Comment>c</Comment><Mnemonic>m</Mnemonic><Description>f</Description><Bits count='3' "
            "signed='1'><Scaled Unit='u' Step='2' Offset='3' DivideBy='4' Format='x'/></Bits>");
  const auto copy = read.item.clone(&target);
  EXPECT_EQ(fragmentOf(*copy, "Data"), fragmentOf(read.item, "Data"));
  EXPECT_EQ(copy->parent, &target) << "given after the name, which the target has already";
  DataItem item;
  item.DataListes = std::make_shared<DataListeItems>();
  item.DataListes->Add(1, "a", "");
  EXPECT_EQ(item.clone(nullptr)->DataListes, nullptr);
  item.liste = true;
  const auto listed = item.clone(nullptr);
  ASSERT_NE(listed->DataListes, nullptr);
  EXPECT_NE(listed->DataListes, item.DataListes);
  EXPECT_EQ(listed->DataListes->Item(1)->parent, listed.get());
  EXPECT_EQ(fragmentOf(*listed, "Data"), fragmentOf(item, "Data"));
}

} // namespace
} // namespace kelmar::testing
