// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/commands.h"
#include "app/cli/one_line.h"
#include "app/cli/session.h"
#include "database/target_walk.h"
#include "frame/rules/ecu_summary.h"

namespace kelmar::cli {

namespace {

void line(Output& output, std::string label, const std::string& value) {
  if (value.empty()) return;
  label.resize(18, ' ');
  output << label << oneLine(value) << "\n";
}

template <class Collection>
int countOf(const Collection& items) {
  return items ? items->Count() : 0;
}

/// "1 test", "3 tests"
std::string counted(int count, const std::string& one, const std::string& several) {
  return std::to_string(count) + " " + (count == 1 ? one : several);
}

std::string joined(const ProjectNames& names) {
  std::string text;
  for (const std::string& name : names)
    text += (text.empty() ? "" : ", ") + name;
  return text;
}

/// Decimal, marked when it has 29 bits; empty for an identifier that is not set.
std::string identifierText(std::int32_t identifier) {
  if (identifier == -1) return {};
  if (identifier >= 0) return std::to_string(identifier);
  return std::to_string(identifier & 0x1FFFFFFF) + " (29 bits)";
}

void printReach(const OmnikorLibXml& database, const TargetItem& target, Output& output) {
  const EcuSummary summary = *summaryOf(database);
  line(output, "Function", summary.TextFunction);
  line(output, "Address", summary.TextAdresse + " (" + std::to_string(target.Address()) + ")");
  line(output, "Logical address", target.LogicalAddress());
  line(output, "Protocol", summary.TextProtocole);
  const FunctionItem* function = database.functions->ItemAddress(target.Address());
  if (function && target.Parametres()->initMode == 3) {
    line(output, "Tool to ECU", identifierText(function->canXid));
    line(output, "ECU to tool", identifierText(function->canRid));
  }
  line(output, "Endianness", target.Parametres()->LittleEndian ? "little" : "big");
}

void printCounts(const TargetItem& target, Output& output) {
  int positions = 0, tests = 0, screens = 0;
  forEachRequest(target,
                 [&](const RequestItem& request) { positions += countOf(request.DataPositions); });
  if (target.Organes()) {
    for (const OrganeItem* device : *target.Organes())
      tests += countOf(device->Tests);
  }
  forEachScreen(target, [&](const ScreenItem&) { ++screens; });
  line(output, "Identifications", std::to_string(countOf(target.AutoIdents)));
  line(output, "Data", std::to_string(countOf(target.datas())));
  line(output, "Requests",
       std::to_string(countOf(target.Requests())) + " with " +
           counted(positions, "position", "positions"));
  line(output, "Devices",
       std::to_string(countOf(target.Organes())) + " with " + counted(tests, "test", "tests"));
  line(output, "Screens",
       std::to_string(screens) + " in " +
           counted(countOf(target.Categories), "category", "categories"));
}

} // namespace

int runShow(const Arguments& arguments, Output& output) {
  Session session(arguments.words()[0], arguments);
  if (!session.load()) return failed;
  const OmnikorLibXml& database = session.database();
  const TargetItem& target = session.target();
  line(output, "Name", target.name());
  line(output, "Generic name", target.Group());
  printReach(database, target, output);
  line(output, "Language", target.Langue());
  line(output, "Projects", joined(target.Projects));
  line(output, "Failures", target.Parametres()->TypePanne());
  printCounts(target, output);
  if (const auto lost = static_cast<int>(database.report().size()); lost > 0)
    line(output, "Not kept", counted(lost, "item", "items"));
  return done;
}

} // namespace kelmar::cli
