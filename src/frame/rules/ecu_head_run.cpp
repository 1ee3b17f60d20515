// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/ecu_head_run.h"

#include "base/conversions.h"
#include "base/failure.h"
#include "base/text.h"

#include <cstring>
#include <utility>

namespace kelmar {

namespace {

constexpr std::size_t longestComment = 2000;    // characters
constexpr std::size_t mostProjects = 10'000;    // what a list can show
constexpr std::size_t mostAutoIdents = 100'000; // a bound for a file that goes on and on

const char* find(const char** attributes, const char* name) {
  for (; *attributes; attributes += 2)
    if (std::strcmp(*attributes, name) == 0) return attributes[1];
  return nullptr;
}

std::string textAt(const char** attributes, const char* name) {
  const char* value = find(attributes, name);
  return value ? value : "";
}

// As in the loading of a file, a value that does not convert counts as missing.
template <class Convert>
auto converted(const char* value, Convert convert) -> std::optional<decltype(convert(value))> {
  if (!value) return std::nullopt;
  try {
    return convert(value);
  } catch (const Failure&) {
    return std::nullopt;
  }
}

std::optional<std::int32_t> numberAt(const char** attributes, const char* name) {
  return converted(find(attributes, name), [](std::string_view text) { return toInt32(text); });
}

bool truthAt(const char** attributes, const char* name) {
  return converted(find(attributes, name), [](std::string_view text) { return toBoolean(text); })
      .value_or(false);
}

} // namespace

EcuHeadRun::EcuHeadRun(EcuHead& head, std::optional<std::int32_t> onlyFunction)
    : ExpatRun(xml::Limits{}, 0), head_(head), onlyFunction_(onlyFunction) {
  places_.reserve(16);
  places_.push_back(Place::Document);
  XML_SetElementHandler(parser(), startElement, endElement);
  XML_SetCharacterDataHandler(parser(), characters);
}

bool EcuHeadRun::feed(std::string_view piece, bool last) {
  const XML_Status status =
      XML_Parse(parser(), piece.data(), static_cast<int>(piece.size()), last ? 1 : 0);
  if (ended_) return false;
  if (error().errorCode != 0) {
    endWith(error().reason + ", line " + std::to_string(error().line) + ", column " +
            std::to_string(error().column));
  } else if (status != XML_STATUS_OK) {
    const char* reason = XML_ErrorString(XML_GetErrorCode(parser()));
    endWith(std::string(reason ? reason : "not well-formed") + ", line " +
            std::to_string(XML_GetCurrentLineNumber(parser())) + ", column " +
            std::to_string(XML_GetCurrentColumnNumber(parser()) + 1));
  } else if (last) {
    endWith("Target node not found");
  }
  return !ended_;
}

void EcuHeadRun::end() {
  if (ended_) return;
  ended_ = true;
  head_.protocol = protocol();
  XML_StopParser(parser(), XML_FALSE);
}

void EcuHeadRun::endWith(const std::string& trouble) {
  if (ended_) return;
  ended_ = true;
  head_ = EcuHead{};
  head_.trouble = trouble;
  XML_StopParser(parser(), XML_FALSE);
}

void XMLCALL EcuHeadRun::startElement(void* self, const XML_Char* name, Attributes attributes) {
  auto* run = static_cast<EcuHeadRun*>(static_cast<ExpatRun*>(self));
  // After a stop Expat may still report what it has read already.
  if (run->ended_ || !run->enterElement()) return;
  run->places_.push_back(run->enter(name, attributes));
}

void XMLCALL EcuHeadRun::endElement(void* self, const XML_Char*) {
  auto* run = static_cast<EcuHeadRun*>(static_cast<ExpatRun*>(self));
  if (run->ended_ || run->error().errorCode != 0) return;
  run->leaveElement();
  const Place left = run->places_.back();
  run->places_.pop_back();
  run->leave(left);
}

void XMLCALL EcuHeadRun::characters(void* self, const XML_Char* text, int length) {
  auto* run = static_cast<EcuHeadRun*>(static_cast<ExpatRun*>(self));
  if (run->ended_ || !run->into_) return;
  // Four bytes are the most that one character takes.
  if (run->text_.size() < 4 * longestComment)
    run->text_.append(text, static_cast<std::size_t>(length));
}

EcuHeadRun::Place EcuHeadRun::enter(std::string_view name, Attributes attributes) {
  switch (places_.back()) {
  case Place::Document:
    if (name == "xml") return Place::Root;
    endWith("RootNode \"xml\" not found");
    break;
  case Place::Root:
    if (name != "zem:Target") break;
    targetSeen_ = true;
    if (!find(attributes, "Name")) {
      endWith("Target Name not found");
      break;
    }
    head_.name = textAt(attributes, "Name");
    head_.group = textAt(attributes, "group");
    return Place::Target;
  case Place::Target:
    return enterInTarget(name, attributes);
  case Place::Projects:
    if (head_.projects.size() < mostProjects)
      head_.projects.emplace_back(name.substr(name.rfind(':') + 1));
    break;
  case Place::K:
  case Place::Kwp:
    return enterInK(name, attributes);
  case Place::Can:
    if (name == "SendId") can_.initMode = 3;
    break;
  case Place::Ip:
    if (name == "IPAddress") into_ = &head_.ipAddress;
    if (name == "MACAddress") into_ = &head_.macAddress;
    return into_ ? Place::IpText : Place::Elsewhere;
  case Place::AutoIdents:
    if (name == "AutoIdent") readAutoIdent(attributes);
    break;
  case Place::IpText:
  case Place::Comment:
  case Place::Elsewhere:
    break;
  }
  return Place::Elsewhere;
}

EcuHeadRun::Place EcuHeadRun::enterInTarget(std::string_view name, Attributes attributes) {
  // Of each only the first counts, as for the loading of the file.
  const auto first = [](Section& section) { return !std::exchange(section.found, true); };
  if (name == "Datas" || name == "Requests" || name == "Devices" || name == "ds:Categories") {
    functionSeen_ ? end() : endWith("Function does not stand before " + std::string(name));
  } else if (name == "Function" && !functionSeen_) {
    readFunction(attributes);
  } else if (name == "Projects" && !projectsSeen_) {
    projectsSeen_ = true;
    return Place::Projects;
  } else if (name == "Description" && !commentSeen_) {
    commentSeen_ = true;
    into_ = &head_.comment;
    return Place::Comment;
  } else if (name == "K" && first(k_)) {
    return Place::K;
  } else if (name == "IP" && first(ip_)) {
    ip_.initMode = -1;
    return Place::Ip;
  } else if (name == "CAN" && first(can_)) {
    can_.initMode = 255; // without an identifier to send
    can_.multiPoint = truthAt(attributes, "Multipoint");
    head_.canFdMaxLength = numberAt(attributes, "CANFDTxMaxDataLength").value_or(0);
    return Place::Can;
  } else if (name == "Protocol" && first(other_)) {
    other_.initMode = numberAt(attributes, "InitMode").value_or(2);
    other_.multiPoint = truthAt(attributes, "Multipoint");
  } else if (name == "AutoIdents" && !std::exchange(autoIdentsSeen_, true)) {
    return Place::AutoIdents;
  }
  return Place::Elsewhere;
}

EcuHeadRun::Place EcuHeadRun::enterInK(std::string_view name, Attributes attributes) {
  if (places_.back() == Place::Kwp) {
    if (name == "ISO8") k_.initMode = 1;
    return Place::Elsewhere;
  }
  if (name == "ISO8") k_.iso8 = true;
  if (name == "KWP" && !std::exchange(k_.kwp, true)) {
    k_.multiPoint = truthAt(attributes, "Multipoint");
    return Place::Kwp;
  }
  return Place::Elsewhere;
}

void EcuHeadRun::readFunction(Attributes attributes) {
  functionSeen_ = true;
  if (!find(attributes, "Name")) {
    endWith("Target function name not found");
    return;
  }
  head_.functionName = textAt(attributes, "Name");
  head_.functionAddress = numberAt(attributes, "Address");
  head_.logicalAddress = textAt(attributes, "LogicalAddress");
  if (onlyFunction_ && head_.functionAddress != onlyFunction_) end();
}

void EcuHeadRun::readAutoIdent(Attributes attributes) {
  const auto diag = numberAt(attributes, "DiagVersion");
  const char* supplier = find(attributes, "Supplier");
  const char* soft = find(attributes, "Soft");
  const char* version = find(attributes, "Version");
  if (!diag || !supplier || !soft || !version) autoIdentsBroken_ = true;
  if (autoIdentsBroken_ || head_.autoIdents.size() >= mostAutoIdents) return;
  head_.autoIdents.push_back({*diag, supplier, soft, version});
}

void EcuHeadRun::leave(Place left) {
  switch (left) {
  case Place::Comment:
    head_.comment = fromCodePoints(toCodePoints(text_).substr(0, longestComment));
    break;
  case Place::IpText:
    *into_ = text_;
    break;
  case Place::AutoIdents:
    // A file that some other program wrote may name its function and its protocol behind them.
    if (functionSeen_ && (k_.found || ip_.found || can_.found || other_.found)) end();
    return;
  case Place::Target:
  case Place::Root:
    if (!targetSeen_)
      endWith("Target node not found");
    else if (!functionSeen_)
      endWith("Target function name not found");
    else
      end();
    return;
  default:
    return;
  }
  into_ = nullptr;
  text_.clear();
}

EcuProtocol EcuHeadRun::protocol() const {
  if (k_.found && k_.iso8) return EcuProtocol::Iso8;
  const bool can = can_.found && !k_.found && !ip_.found;
  if (can && head_.canFdMaxLength > 0) return EcuProtocol::CanFd;
  // A file without any section loads with what a new ECU has.
  const Section& section = k_.found ? k_ : ip_.found ? ip_ : can ? can_ : other_;
  if (section.initMode < 0) return EcuProtocol::Ip;
  switch (section.initMode) {
  case 0:
    return EcuProtocol::Iso8;
  case 1:
    return section.multiPoint ? EcuProtocol::Kwp5BaudType2 : EcuProtocol::Kwp5BaudType1;
  case 2:
    return section.multiPoint ? EcuProtocol::KwpFastInitMulti : EcuProtocol::KwpFastInitMono;
  case 3:
    return EcuProtocol::Can;
  case 255:
    return EcuProtocol::CanMessaging;
  default:
    return EcuProtocol::Unknown;
  }
}

} // namespace kelmar
