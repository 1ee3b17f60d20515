// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/paste_checks.h"

#include "base/text.h"
#include "editors/rules/datas/data_clipboard.h"
#include "editors/rules/datas/data_commands.h"
#include "editors/rules/datas/value_list.h"
#include "editors/rules/positions/create_data.h"
#include "editors/rules/positions/position_clipboard.h"
#include "editors/rules/requests/request_tab_clipboard.h"
#include "frame/rules/auto_ident_clipboard.h"
#include "fuzz/ecu_text.h"
#include "language/multi_lang.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <set>

namespace kelmar::fuzz {

namespace {

constexpr char ecuText[] = R"(<xml xmlns:zem="http://www.omnikor.example/2002/ECU">
<zem:Target Name="Steering"><Function Name="Steering" Address="4"/>
<CAN BaudRate="500000"><SendId><CANId Value="1858"/></SendId><ReceiveId><CANId Value="1890"/></ReceiveId></CAN>
<AutoIdents><AutoIdent DiagVersion="12" Supplier="OKN" Soft="1A00" Version="0100"/></AutoIdents>
<Datas>
<Data Name="Mode"><Bits count="3"><List><Item Value="0" Text="Normal"/><Item Value="1" Text="City"><![CDATA[slow]]></Item><Item Value="5" Text="Off"/></List></Bits></Data>
<Data Name="Serial"><Bytes count="4" ascii="1"/></Data>
<Data Name="Speed"><Comment><![CDATA[of the vehicle]]></Comment><Mnemonic>VS</Mnemonic><Description><![CDATA[sheet]]></Description><Bits count="16" signed="1"><Scaled Unit="km/h" Step=" .01" Offset="-40" Format="0.0"/></Bits></Data>
<Data Name="Torque"><Bits count="12"><Scaled/></Bits></Data>
<Data Name="Wish"><Bits><Scaled/></Bits></Data></Datas>
<Requests Endian="Big">
<Request Name="Read"><DossierMaintenabilite/><Sent><SentBytes>2110</SentBytes></Sent><Received MinBytes="9"><ReplyBytes>6110</ReplyBytes><DataItem Name="Speed" Ref="1" FirstByte="3" Endian="Little"/></Received></Request>
<Request Name="Write"><ManuelSend/><Sent><SentBytes>3B01FF</SentBytes><DataItem Name="Wish" FirstByte="3"/></Sent><Received MinBytes="2"><DataItem Name="Mode" FirstByte="2" BitOffset="5"/></Received></Request></Requests>
<Devices><Device Name="Sensor" DTC="821" Type="2" FreezeFrame="Read"><DeviceData Name="Speed"/></Device></Devices>
</zem:Target></xml>)";

/// The text of the ECU that everything is pasted into, as a save gives it.
const std::string& ecu() {
  static const std::string text = [] {
    const auto first = loaded(ecuText);
    const auto second = first ? loaded(saved(*first).value_or("")) : nullptr;
    auto result = second ? saved(*second) : std::nullopt;
    if (!result) std::abort();
    return *result;
  }();
  return text;
}

/// Answers as the first byte says, the same way in every run.
class FuzzPerson final : public platform::Person {
 public:
  enum Way { Yes, No, Cancel, Mixed };
  explicit FuzzPerson(unsigned way) : way_(static_cast<Way>(way & 3)) {}

  platform::Answer message(const platform::Box& box) override {
    if (box.title.empty() || box.text.empty()) std::abort();
    using platform::Answer;
    using platform::Buttons;
    if (box.buttons == Buttons::Ok) return Answer::Ok;
    const Way way = way_ == Mixed ? static_cast<Way>(++asked_ * 7 % 3) : way_;
    agreed_ = agreed_ || way == Yes || (way == No && box.buttons == Buttons::YesNoCancel);
    if (box.buttons == Buttons::OkCancel) return way == Yes ? Answer::Ok : Answer::Cancel;
    if (way == Yes) return Answer::Yes;
    return way == Cancel && box.buttons == Buttons::YesNoCancel ? Answer::Cancel : Answer::No;
  }
  std::optional<std::string> file(const platform::FileQuestion&) override { return std::nullopt; }

  /// An answer allowed to change what was there.
  bool agreed() const { return agreed_; }

 private:
  Way way_;
  unsigned asked_ = 0;
  bool agreed_ = false;
};

class InFrench {
 public:
  explicit InFrench(bool french) {
    if (!french) return;
    texts_.language = "fr";
    language::setGlobal(&texts_);
  }
  InFrench(const InFrench&) = delete;
  InFrench& operator=(const InFrench&) = delete;
  ~InFrench() { language::setGlobal(nullptr); }

 private:
  CMultiLangEx texts_;
};

/// The file form of each data and each request, by name.
using Texts = std::map<std::string, std::string>;
struct Content {
  Texts datas, requests;
};

template <class Item>
std::string textOf(const Item& item) {
  xml::Writer out;
  out.open("item");
  item.createXMLnode(out);
  out.close();
  return out.take();
}

Content contentOf(const TargetItem& target) {
  Content content;
  for (const DataItem* data : *target.datas())
    content.datas[data->dataName()] = textOf(*data);
  for (const RequestItem* request : *target.Requests())
    content.requests[request->requestName] = textOf(*request);
  return content;
}

/// The file without data and requests: what no paste of them touches.
std::string surroundings(const std::string& file) {
  std::string rest = file;
  for (const auto& [from, to] : {std::pair("<Datas", "</Datas>"), {"<Requests", "</Requests>"}}) {
    const std::size_t begin = rest.find(from), end = rest.find(to);
    if (begin != std::string::npos && end != std::string::npos) rest.erase(begin, end - begin);
  }
  return rest;
}

std::string inconsistency(const TargetItem& target) {
  std::set<std::string> keys;
  for (const DataItem* data : *target.datas()) {
    if (data->parent != &target) return "a data without the ECU: " + data->dataName();
    if (!keys.insert(foldCase(data->dataName())).second) return "a data twice: " + data->dataName();
    if (target.datas()->ItemName(data->dataName()) != data)
      return "a data that its name does not find: " + data->dataName();
    if (!data->DataListes) continue;
    for (const DataListeItem* item : *data->DataListes)
      if (item->parent != data) return "a value without its data: " + data->dataName();
  }
  keys.clear();
  for (const RequestItem* request : *target.Requests()) {
    if (request->parent != &target) return "a request without the ECU: " + request->requestName;
    if (!keys.insert(foldCase(request->requestName)).second)
      return "a request twice: " + request->requestName;
    if (!request->DataPositions) continue;
    std::set<std::string> placed;
    for (const DataPositionItem* position : *request->DataPositions) {
      if (position->parent != request) return "a position without its request";
      if (!position->data()) return "a position without data: " + position->dataName;
      if (!placed.insert(position->dataName).second)
        return "a position twice: " + position->dataName;
    }
  }
  return {};
}

/// Empty, or the item that is another one than before.
std::string changedItem(const Texts& before, const Texts& after, const std::string& except = {}) {
  for (const auto& [name, text] : before) {
    if (name == except) continue;
    const auto found = after.find(name);
    if (found == after.end()) return "'" + name + "' is gone";
    if (found->second != text)
      return differenceOf(("'" + name + "' is another").c_str(), text, found->second);
  }
  return {};
}

std::string withoutBlanks(std::string text) {
  std::erase(text, ' ');
  return text;
}

/// What was read from lines is written to lines that read back as the same. Cells are cut at a
/// length after their blanks went, so that a blank may come to stand at the end and go with the
/// next paste.
std::string brokenByCopying(Paste where, TargetItem& target) {
  const auto copied = [&](bool& broken) {
    if (where == Paste::Datas) {
      const DataText text = copyDatasText(listedDatas(target));
      broken = text.hasBrokenCell;
      return text.text;
    }
    RequestSelection all;
    for (RequestItem* request : *target.Requests())
      all.push_back(request);
    return copyRequestsText(all, broken);
  };
  FuzzPerson person(FuzzPerson::Yes);
  bool broken = false;
  const std::string first = copied(broken);
  if (broken) return {};
  if (where == Paste::Datas)
    pasteDatasText(first, target, person);
  else
    pasteDataFromExcel(first, target, person);
  const std::string second = copied(broken);
  if (withoutBlanks(first) == withoutBlanks(second)) return {};
  return differenceOf("copied lines read back as others", first, second);
}

/// A coefficient that a file cannot give back, on purpose: a small divisor is read into the offset,
/// one beyond 28 digits is no decimal, and an offset below them is written as 0, which the next
/// save leaves out. Lines can bring them all.
bool hasCoefficientThatIsLost(const TargetItem& target) {
  constexpr double greatestDecimal = 7.9e28;
  for (const DataItem* data : *target.datas()) {
    const double divisor = data->CoeffC.value();
    if (!(data->CoeffB == 0.0) && data->CoeffB.toNumberText() == " 0") return true;
    if (Coefficient::needsDecimal(divisor) || std::abs(divisor) > greatestDecimal) return true;
  }
  return false;
}

/// What the file cannot give back of the note of a value, on purpose: blanks around it and carriage
/// returns; and what it refuses to hold, by name. A list of values can bring both.
struct Notes {
  bool lose = false, refused = false;

  explicit Notes(const TargetItem& target) {
    for (const DataItem* data : *target.datas()) {
      if (!data->DataListes) continue;
      for (const DataListeItem* item : *data->DataListes) {
        lose = lose || trimBlanks(item->Info) != item->Info ||
               item->Info.find('\r') != std::string::npos;
        refused = refused || item->Info.find("]]>") != std::string::npos;
      }
    }
  }
};

/// What one paste may have done.
struct Done {
  bool changed = false;
  bool mayUpdate = false;  ///< what was there
  std::string except = {}; ///< the one item that may be another in any case
};

Done paste(Paste where, const std::string& text, unsigned way, OmnikorLibXml& database,
           FuzzPerson& person) {
  TargetItem& target = *database.ActiveTarget;
  const bool sent = (way & 4) != 0;
  RequestItem& request = *target.Requests()->ItemName((way & 16) != 0 ? "Read" : "Write");
  switch (where) {
  case Paste::Datas: {
    const bool changed = pasteDatas(text, database, target, person).changed;
    return {changed, person.agreed()};
  }
  case Paste::Values: {
    DataItem& data = *target.datas()->ItemName("Mode");
    ValueList values;
    values.bind(&data);
    const bool changed = values.paste(text, person);
    values.SaveDataItems(data);
    return {changed, false, "Mode"};
  }
  case Paste::Requests: {
    const bool changed = pasteRequests(text, database, target, person).changed;
    return {changed, person.agreed()};
  }
  case Paste::Positions:
    return {pasteDataPositions(text, database, target, request, sent, person), false,
            request.requestName};
  case Paste::DatasAtBit: {
    const FrameBit bit{(way >> 5) & 3, static_cast<int>(way & 7)};
    return {pasteDatasAt(text, target, request, sent, bit, person) != nullptr, false,
            request.requestName};
  }
  case Paste::Identifications:
    break;
  }
  return {!pasteAutoIdents(text, database, *target.AutoIdents, &target).empty()};
}

} // namespace

std::string brokenByPaste(Paste where, std::string_view input) {
  if (input.empty()) return {};
  const auto way = static_cast<unsigned char>(input.front());
  // The desktop gives text, whatever bytes another program had put there.
  const std::string text = fromCodePoints(toCodePoints(input.substr(1)));
  const auto database = loaded(ecu());
  TargetItem& target = *database->ActiveTarget;
  const Content before = contentOf(target);
  const InFrench french((way & 8) != 0);
  FuzzPerson person(way);
  const Done done = paste(where, text, way, *database, person);

  if (target.Parametres()->LittleEndian) return "the endianness of the ECU is another";
  if (const std::string problem = inconsistency(target); !problem.empty()) return problem;
  const bool loses = losesByWriting(target) || hasCoefficientThatIsLost(target);
  const Notes notes(target);
  const auto save = saved(*database);
  if (!save) return notes.refused ? "" : "the model cannot be saved";
  if (!done.changed && *save != ecu()) return differenceOf("changed, but not told", ecu(), *save);
  const Content after = contentOf(target);
  if (!done.mayUpdate) {
    for (const auto& [old, now] :
         {std::pair(&before.datas, &after.datas), {&before.requests, &after.requests}})
      if (const std::string problem = changedItem(*old, *now, done.except); !problem.empty())
        return problem;
  }
  if (where != Paste::Identifications && surroundings(*save) != surroundings(ecu()))
    return differenceOf("the paste reached farther", surroundings(ecu()), surroundings(*save));

  const auto again = loaded(*save);
  const auto second = again ? saved(*again) : std::nullopt;
  if (!second) return "what was saved cannot be loaded and saved:\n" + *save;
  if (*second != *save && !loses && !notes.lose)
    return differenceOf("the second save differs", *save, *second);

  const bool isText = !xml::Document().loadXML(text);
  if (isText && (where == Paste::Datas || where == Paste::Requests))
    return brokenByCopying(where, target);
  return {};
}

} // namespace kelmar::fuzz
