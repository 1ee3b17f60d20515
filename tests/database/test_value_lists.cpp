// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"

namespace kelmar::testing {
namespace {

std::shared_ptr<DataListeItem> item(std::int32_t value, const std::string& label) {
  auto made = std::make_shared<DataListeItem>();
  made->Valeur = value;
  made->libelle = label;
  return made;
}

std::string valuesOf(const DataListeItems& items) {
  return namesOf(items, [](const DataListeItem& member) { return std::to_string(member.Valeur); });
}

TEST(ValueList, AddDataPutsBehindTheLastGreaterValue) {
  DataListeItems items;
  for (const std::int32_t value : {1, 3, 4})
    items.AddDataUnSorted(item(value, std::to_string(value)));
  items.Add(2, "two", "");
  EXPECT_EQ(valuesOf(items), "1 3 2 4") << "no early exit";
  items.Add(9, "nine", "");
  EXPECT_EQ(valuesOf(items), "1 3 2 4 9");
  items.Add(-1, "minus", "");
  EXPECT_EQ(valuesOf(items), "1 3 2 4 -1 9");
}

TEST(ValueList, RefusesValuesAndLabelsOfAMember) {
  DataListeItems items;
  items.Add(1, "One", "");
  for (const bool sorted : {true, false}) {
    const auto add = [&](std::int32_t value, const char* label) {
      return Ecu::failureOf([&] {
        sorted ? items.AddData(item(value, label)) : items.AddDataUnSorted(item(value, label));
      });
    };
    EXPECT_EQ(add(1, "Uno"), "1 DataListeItems: Duplicate value '1' with label 'One'");
    EXPECT_EQ(add(2, "One"), "1 DataListeItems: Duplicate label 'One' with value '1'");
    EXPECT_EQ(items.Count(), 1);
  }
  items.Add(2, "one", "");
  EXPECT_EQ(items.Count(), 2) << "labels are told apart exactly";
}

TEST(ValueList, LookupsAreLinearAndLabelsIgnoreCase) {
  DataListeItems items;
  DataListeItem* first = items.Add(1, "Été", "");
  EXPECT_EQ(items.ItemValue(1), first);
  EXPECT_EQ(items.ItemValue(2), nullptr);
  EXPECT_EQ(items.ItemLabel("éTÉ"), first);
  EXPECT_EQ(items.ItemLabel("ete"), nullptr);
}

TEST(ValueList, ValueMaxIsTheGreatest) {
  DataListeItems items;
  EXPECT_EQ(items.ValueMax(), 0);
  for (const std::int32_t value : {3, 9, 1})
    items.Add(value, std::to_string(value), "");
  EXPECT_EQ(items.ValueMax(), 9);
  DataListeItems negative;
  negative.Add(-5, "a", "");
  EXPECT_EQ(negative.ValueMax(), -5);
}

TEST(ValueList, DeleteGoesByIdentity) {
  DataListeItems items;
  const auto first = item(1, "a");
  items.AddData(first);
  items.deleteItem(item(1, "a").get());
  EXPECT_EQ(items.Count(), 1);
  items.deleteItem(first.get());
  EXPECT_EQ(items.Count(), 0);
}

TEST(ValueListItem, InfoComesFromTheFirstSectionAlone) {
  Ecu ecu;
  const auto infoOf = [&](const std::string& content) {
    DataListeItem read;
    read.loadXml(ecu.db, Fragment("<Item Value='2' Text='On'>" + content + "</Item>"));
    EXPECT_EQ(read.Valeur, 2);
    EXPECT_EQ(read.libelle, "On");
    return read.Info;
  };
  EXPECT_EQ(infoOf("<![CDATA[ why ]]>"), "why");
  EXPECT_EQ(infoOf("plain text"), "");
  EXPECT_EQ(infoOf("text<![CDATA[first]]> and <![CDATA[second]]>"), "first");
  EXPECT_EQ(infoOf("<b><![CDATA[deep]]></b>"), "");
  EXPECT_EQ(infoOf(""), "");
}

TEST(ValueListItem, ObjectAndText) {
  DataListeItem written;
  written.Valeur = -7;
  written.libelle = "a\"b";
  EXPECT_EQ(fragmentOf(written, "Item"), R"(<Item Value="-7" Text="a&quot;b"/>)");
  written.Info = " <why> ";
  EXPECT_EQ(fragmentOf(written, "Item"),
            R"(<Item Value="-7" Text="a&quot;b"><![CDATA[ <why> ]]></Item>)");
}

TEST(ValueListItem, FailuresCarryThePlatformsText) {
  Ecu ecu;
  const auto failureOf = [&](const char* text) {
    DataListeItem read;
    read.loadXml(ecu.db, Fragment(text));
    const Failure error = ecu.db.loading().pending.error();
    return std::to_string(error.number) + " " + error.text + "|" + read.libelle + "|" + read.Info;
  };
  EXPECT_EQ(failureOf("<Item Value='1'><![CDATA[i]]></Item>"), "1 Object not set||");
  EXPECT_EQ(failureOf("<Item Text='t'><![CDATA[i]]></Item>"), "1 Object not set|t|");
  EXPECT_EQ(failureOf("<Item Text='t' Value='x'/>"), "1 Type mismatch|t|");
  EXPECT_EQ(failureOf("<Item Text='t' Value='3000000000'/>"), "1 Overflow|t|");
}

TEST(ValueListLoad, KeepsOrderDuplicatesAndIncompleteMembers) {
  Ecu ecu;
  FileText file;
  file.datas = "<Data Name='D'><Bits><List><Item Value='5' Text='e'/><Item Value='1' Text='a'/>"
               "<Item Value='5' Text='f'/><Item Value='7' Text='a'/><Item Text='g'/><Item/></List>"
               "</Bits></Data>";
  ecu.load(file);
  const DataItem* data = ecu.target().datas()->Item(1);
  EXPECT_TRUE(data->liste);
  EXPECT_EQ(valuesOf(*data->DataListes), "5 1 5 7 0 0");
  EXPECT_EQ(data->DataListes->Item(1)->parent, data);
  EXPECT_EQ(ecu.report(), "") << "all of them are kept";
}

TEST(ValueListLoad, OfAnEmptyListIsAListWithoutMembers) {
  Ecu ecu;
  FileText file;
  file.datas = "<Data Name='D'><Bits><Scaled Unit='u'/><List/></Bits></Data>";
  ecu.load(file);
  const DataItem* data = ecu.target().datas()->Item(1);
  EXPECT_TRUE(data->liste);
  EXPECT_EQ(data->DataListes->Count(), 0);
  EXPECT_EQ(data->Unite, "u") << "both are read";
}

TEST(ValueListClone, ComesOutInTheOrderOfTheInsertionRule) {
  DataListeItems items;
  for (const std::int32_t value : {3, 1, 2, 2}) {
    auto member = item(value, std::to_string(value) + std::to_string(items.Count()));
    if (items.Count() == 3) member->Valeur = 5;
    items.AddDataUnSorted(member);
  }
  DataItem owner;
  const auto copy = items.clone(&owner);
  EXPECT_EQ(valuesOf(items), "3 1 2 5");
  EXPECT_EQ(valuesOf(*copy), "1 2 3 5");
  EXPECT_EQ(copy->Item(1)->parent, &owner);
}

TEST(ValueListClone, KeepsTheDuplicatesOfAFile) {
  Ecu ecu;
  DataListeItems items;
  items.loadXml(ecu.db,
                Fragment("<List><Item Value='1' Text='a'/><Item Value='1' Text='a'/></List>"),
                nullptr);
  EXPECT_EQ(items.clone(nullptr)->Count(), 2);
}

} // namespace
} // namespace kelmar::testing
