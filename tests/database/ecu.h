// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/load_members.h"
#include "database/omnikor_lib_xml.h"
#include "support/machine_doubles.h"
#include "support/scripted_person.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace kelmar::testing {

/// The parts of a target's text; each can be replaced. The rest of the file is the usual frame.
struct FileText {
  std::string function = R"(<Function Name="Engine" Address="122" LogicalAddress="7A"/>)";
  std::string head;            ///< between Function and the lists
  std::string datas, requests; ///< what stands inside the lists
  std::string endian = "Big";
  std::string devices, categories;
  std::string autoIdents = "<AutoIdents/>";

  std::string text() const {
    return "<xml>\n<zem:Target Name=\"E\">\n" + function + "\n" + head + "\n" + autoIdents +
           "\n<Datas>\n" + datas + "</Datas>\n<Requests Endian=\"" + endian + "\">\n" + requests +
           "</Requests>\n<Devices>\n" + devices + "</Devices>\n<ds:Categories>\n" + categories +
           "</ds:Categories>\n</zem:Target></xml>";
  }
};

/// A database with a clock that stands still, and what it said.
class Ecu {
 public:
  explicit Ecu(const std::string& lang = "en") : db({nullptr, &person, &clock}, lang) {
    db.LibMessage = [this](const std::string& source, const std::string& message) {
      messages.push_back(source + ": " + message);
    };
  }

  /// Loads the text as a file. Raises as ImportUceFromXml does.
  void load(const std::string& text) { db.ImportUceFromXml(folder.write("in.xml", text)); }
  void load(const FileText& file) { load(file.text()); }
  /// "number source: text" of the failure, or empty.
  std::string failureOfLoad(const std::string& text) {
    return failureOf([&] { load(text); });
  }
  template <class Action>
  static std::string failureOf(Action action) {
    try {
      action();
    } catch (const Failure& failure) {
      return std::to_string(failure.number) + " " + failure.source + ": " + failure.text;
    }
    return {};
  }
  /// A new ECU whose function is known.
  TargetItem& makeNew() {
    TargetItem* target = db.NewTarget();
    if (!db.functions) db.functions = std::make_shared<FunctionItems>();
    if (!db.functions->ItemAddress(122)) db.functions->Add(122, "7A", "Engine");
    target->setName("E");
    target->setAddress(122);
    target->setLogicalAddress("7A");
    return *target;
  }
  TargetItem& target() const { return *db.ActiveTarget; }
  std::string saved() { return db.ecuFileBytes(); }
  /// What stands behind the first `from` up to the next `to`.
  std::string savedBetween(const std::string& from, const std::string& to) {
    return between(saved(), from, to);
  }
  static std::string between(const std::string& text, const std::string& from,
                             const std::string& to) {
    const std::size_t start = text.find(from);
    if (start == std::string::npos) return "nothing between " + from + " and " + to;
    const std::size_t end = text.find(to, start + from.size());
    return text.substr(start + from.size(),
                       end == std::string::npos ? end : end - start - from.size());
  }
  /// One line an entry: "kind|name|path|line|reason".
  std::string report() const { return reportText(db.report()); }
  static std::string reportText(const LoadReport& report) {
    std::string text;
    for (const NotKept& note : report)
      text += note.kind + "|" + note.name + "|" + note.path + "|" + std::to_string(note.line) +
              "|" + note.reason + "\n";
    return text;
  }

  support::TempFolder folder;
  support::FixedClock clock;
  support::ScriptedPerson person;
  OmnikorLibXml db;
  std::vector<std::string> messages;
};

/// The item's own element, under the name `element`.
template <class Item>
std::string fragmentOf(Item& item, const char* element) {
  xml::Writer out;
  out.open(xml::Name(element));
  item.createXMLnode(out);
  out.close();
  return out.take();
}

/// The element as a fragment, for an item's `loadXml`.
class Fragment {
 public:
  explicit Fragment(const std::string& text) {
    EXPECT_TRUE(document_.loadXML(text)) << document_.parseError().reason;
  }
  operator xml::Node() const { return document_.root(); }

 private:
  xml::Document document_;
};

/// The names of a collection, joined by blanks.
template <class Collection, class Name>
std::string namesOf(const Collection& items, Name name) {
  std::string names;
  const char* separator = "";
  for (const auto* item : items) {
    names += separator + std::string(name(*item));
    separator = " ";
  }
  return names;
}

} // namespace kelmar::testing
