// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/test_item.h"

#include "base/conversions.h"
#include "database/load_members.h"
#include "database/omnikor_lib_xml.h"
#include "database/organe_item.h"
#include "database/target_item.h"

namespace kelmar {

void FlagPositions::Add(Pointer position) {
  const NameKey key(position->dataName);
  append(std::move(position), key);
}

void FlagPositions::rekey(int position, std::string_view newName) {
  const NameKey key(newName);
  append(take(position), key);
}

void FlagPositions::clear() {
  while (Count() > 0)
    Remove(Count());
}

void TestItem::setOBD(std::int32_t code) {
  if (code == obd_) return;
  if (code != 0 && parent && parent->parent && parent->parent->Organes() &&
      parent->parent->Organes()->GetDevicesTestWithObd(code))
    throw Failure(1, "TestItem.OBD", "Duplicate OBD code");
  obd_ = code;
}

void TestItem::clear() {
  StoredFlag.clear();
  PresentFlag.clear();
  parent = nullptr;
}

std::shared_ptr<TestItem> TestItem::clone(OrganeItem* newParent) const {
  auto copy = std::make_shared<TestItem>();
  copy->Description = Description;
  copy->testType = testType;
  copy->obd_ = obd_;
  copy->Severity = Severity;
  copy->Autocheck = Autocheck;
  for (const auto& position : StoredFlag.members())
    copy->StoredFlag.Add(position);
  for (const auto& position : PresentFlag.members())
    copy->PresentFlag.Add(position);
  copy->parent = newParent;
  return copy;
}

bool TestItem::holdsFlag(std::string_view dataName) const {
  const NameKey key(dataName);
  return StoredFlag.findKey(key) || PresentFlag.findKey(key);
}

bool TestItem::DeleteFlag(std::string_view dataName) {
  for (FlagPositions* flags : {&StoredFlag, &PresentFlag}) {
    for (int position = 1; position <= flags->Count(); ++position) {
      if (flags->Item(position)->dataName != dataName) continue;
      flags->Remove(position);
      return true;
    }
  }
  return false;
}

void TestItem::RenameFlag(std::string_view oldName, std::string_view newName) {
  const NameKey key(oldName);
  for (FlagPositions* flags : {&StoredFlag, &PresentFlag}) {
    const DataPositionItem* entry = flags->findKey(key);
    if (!entry) continue;
    // The last entry is never reached and keeps its old key, on purpose. The file does not show it:
    // the name that is written comes from the position.
    for (int position = 1; position < flags->Count(); ++position) {
      if (flags->Item(position) != entry) continue;
      try {
        flags->rekey(position, newName);
      } catch (const Failure&) {
        // The new key is taken: tolerated.
      }
      return;
    }
  }
}

void TestItem::createXMLnode(xml::Writer& out) const {
  out.attribute("Type", testType);
  if (obd_ != 0) out.attribute("OBD", obd_);
  if (Severity != 1) out.attribute("Severity", Severity);
  if (!Autocheck) out.attribute("Autocheck", "0");
  // The one element whose lines end with two characters.
  out.crLf();
  if (!Description.empty()) out.textElement("Description", Description);
  for (const DataPositionItem* position : StoredFlag) {
    out.textElement("StoredFlag", position->dataName);
    out.crLf();
  }
  for (const DataPositionItem* position : PresentFlag) {
    out.textElement("PresentFlag", position->dataName);
    out.crLf();
  }
}

void TestItem::loadXml(OmnikorLibXml& database, xml::Node element) {
  LoadContext& load = database.loading();
  load.pending.clear();
  if (!element.attribute("Type")) {
    load.pending.set(1, "TestItem.loadXml", "TestItem.loadXml error : Type not found");
    return;
  }
  readNumber(load, element, "Type", testType);
  Description = xml::textOf(element.child("Description"));
  obd_ = 0;
  std::int32_t code = 0;
  if (element.attribute("OBD") && readNumber(load, element, "OBD", code)) {
    if (code != 0 && parent && parent->parent && load.isObdTaken(*parent, code)) {
      load.notKept("OBD", element.attribute("OBD").value(), element, "Duplicate OBD code");
    } else {
      obd_ = code;
    }
  }
  if (element.attribute("Severity")) readNumber(load, element, "Severity", Severity);
  load.pending.clear();
  if (const xml::Attribute autocheck = element.attribute("Autocheck"))
    Autocheck = trimBlanks(autocheck.value()) == "1";
  loadFlags(database, element, "StoredFlag", StoredFlag);
  loadFlags(database, element, "PresentFlag", PresentFlag);
}

void TestItem::loadFlags(OmnikorLibXml& database, xml::Node element, const char* child,
                         FlagPositions& flags) {
  LoadContext& load = database.loading();
  const TargetItem* target = parent ? parent->parent : nullptr;
  if (!target) return;
  flags.clear();
  for (xml::Node node : element.children(child)) {
    const std::string name = xml::textOf(node);
    if (load.isTakenByDevice(*parent, name)) {
      load.notKept("Flag", name, node, "the data is used by a device already");
      continue;
    }
    DataPositionItem* position = load.referencePosition(*target, name);
    if (!position) {
      const std::string why = "Data '" + name + "' doesn't exist, remove from " + child + " list";
      database.RaiseLibMessage("TestItem.LoadXml", why);
      load.notKept("Flag", name, node, why);
      continue;
    }
    try {
      flags.Add(position->shared_from_this());
    } catch (const Failure& failure) {
      load.pending.set(failure);
      load.notKept("Flag", name, node, "the flag stands twice in the test");
    }
  }
}

TestItem* TestItems::Add(std::int32_t type) {
  auto item = std::make_shared<TestItem>();
  item->testType = type;
  return append(std::move(item), std::to_string(type));
}

TestItem* TestItems::AddData(Pointer item) {
  if (ItemType(item->testType)) {
    throw Failure(1, "TestItems.AddData",
                  "Duplicate Data, a data can be used only one time in one device");
  }
  const std::string key = std::to_string(item->testType);
  return append(std::move(item), key);
}

TestItem* TestItems::ItemType(std::int32_t type) const {
  return findKey(std::to_string(type));
}

TestItem* TestItems::ItemOBD(std::int32_t code) const {
  if (code == 0) return nullptr;
  for (TestItem* member : *this)
    if (member->OBD() == code) return member;
  return nullptr;
}

TestItem* TestItems::GetTestUsingData(std::string_view dataName) const {
  for (TestItem* member : *this)
    if (member->holdsFlag(dataName)) return member;
  return nullptr;
}

std::shared_ptr<TestItems> TestItems::clone(OrganeItem* newParent) const {
  auto copy = std::make_shared<TestItems>();
  for (const TestItem* member : *this)
    copy->AddData(member->clone(newParent));
  return copy;
}

void TestItems::createXMLnode(xml::Writer& out) const {
  for (const TestItem* member : *this) {
    out.open("Test");
    member->createXMLnode(out);
    out.close();
  }
}

void TestItems::loadXml(OmnikorLibXml& database, xml::Node parent, OrganeItem* owner) {
  LoadContext& load = database.loading();
  load.pending.clear();
  loadMembers(
      load, parent, "Test", "Test", MemberTest::Bitwise,
      [&](xml::Node node) {
        auto item = std::make_shared<TestItem>();
        item->parent = owner;
        item->loadXml(database, node);
        return item;
      },
      [&](Pointer item) {
        const TestItem* added = AddData(std::move(item));
        load.noteObd(added->OBD());
        for (const DataPositionItem* position : added->StoredFlag)
          load.noteFlag(position->dataName);
        for (const DataPositionItem* position : added->PresentFlag)
          load.noteFlag(position->dataName);
      });
}

} // namespace kelmar
