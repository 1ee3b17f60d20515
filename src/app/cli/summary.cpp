// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/summary.h"

#include "app/cli/one_line.h"
#include "database/omnikor_lib_xml.h"
#include "database/target_walk.h"
#include "frame/rules/ecu_summary.h"

namespace kelmar::cli {

namespace {

constexpr std::size_t widthOfNames = 18;

void line(Output& out, std::string name, const std::string& value) {
  if (value.empty()) return;
  name += ':';
  name.resize(widthOfNames, ' ');
  out << name << oneLine(value) << '\n';
}

/// "3 requests", "1 request"
std::string counted(std::size_t count, const std::string& one, const std::string& several) {
  return std::to_string(count) + " " + (count == 1 ? one : several);
}

/// Decimal, with a mark for 29 bits; empty for an identifier that is not set.
std::string identifierText(std::int32_t identifier) {
  if (identifier == -1) return {};
  if (identifier >= 0) return std::to_string(identifier);
  return std::to_string(identifier & 0x1FFFFFFF) + " (29 bits)";
}

std::string projectsText(const ProjectNames& projects) {
  std::string text;
  for (const std::string& name : projects)
    text += (text.empty() ? "" : " ") + name;
  return text;
}

template <class Collection>
std::size_t countOf(const std::shared_ptr<Collection>& items) {
  return items ? static_cast<std::size_t>(items->Count()) : 0;
}

void printReach(Output& out, const OmnikorLibXml& database, const TargetItem& target,
                const EcuSummary& summary) {
  line(out, "Function", summary.TextFunction);
  line(out, "Address",
       std::to_string(target.Address()) + " (hexadecimal " + summary.TextAdresse + ")");
  line(out, "Logical address", summary.TextLogicalAdresse);
  line(out, "Protocol", summary.TextProtocole);
  const FunctionItem* function =
      database.functions ? database.functions->ItemAddress(target.Address()) : nullptr;
  const bool usesIdentifiers = target.Parametres() && target.Parametres()->initMode == 3;
  if (function && usesIdentifiers) {
    line(out, "Tool to ECU", identifierText(function->canXid));
    line(out, "ECU to tool", identifierText(function->canRid));
  }
}

void printCounts(Output& out, const TargetItem& target) {
  std::size_t positions = 0, tests = 0, screens = 0;
  forEachRequest(target,
                 [&](const RequestItem& item) { positions += countOf(item.DataPositions); });
  if (target.Organes())
    for (const OrganeItem* device : *target.Organes())
      tests += countOf(device->Tests);
  forEachScreen(target, [&](const ScreenItem&) { ++screens; });
  line(out, "Identifications", std::to_string(countOf(target.AutoIdents)));
  line(out, "Data", std::to_string(countOf(target.datas())));
  line(out, "Requests",
       std::to_string(countOf(target.Requests())) + " with " +
           counted(positions, "position", "positions"));
  line(out, "Devices",
       std::to_string(countOf(target.Organes())) + " with " + counted(tests, "test", "tests"));
  line(out, "Screens",
       std::to_string(screens) + " in " +
           counted(countOf(target.Categories), "category", "categories"));
}

} // namespace

void printSummary(Output& out, const OmnikorLibXml& database, const std::string& file) {
  const EcuSummary summary = summaryOf(database).value();
  const TargetItem& target = *database.ActiveTarget;
  line(out, "File", file);
  line(out, "Name", summary.TxEcuName);
  line(out, "Generic name", summary.txGenericName);
  printReach(out, database, target, summary);
  line(out, "Language", target.Langue());
  line(out, "Projects", projectsText(target.Projects));
  if (target.Parametres()) line(out, "Failures", target.Parametres()->TypePanne());
  printCounts(out, target);
  if (!database.report().empty())
    line(out, "Not kept", counted(database.report().size(), "item", "items"));
  if (database.loadedFromQvr()) line(out, "Saving", "not possible, a file of the sibling tool");
}

} // namespace kelmar::cli
