// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/commands.h"
#include "app/cli/session.h"
#include "database/target_walk.h"
#include "frame/rules/ecu_summary.h"

namespace kelmar::cli {

namespace {

void line(Output& output, std::string_view label, const std::string& value) {
  if (value.empty()) return;
  output << label << std::string(label.size() < 18 ? 18 - label.size() : 1, ' ') << value << "\n";
}

template <class Collection>
std::string countOf(const Collection& items) {
  return std::to_string(items ? items->Count() : 0);
}

std::string joined(const ProjectNames& names) {
  std::string text;
  for (const std::string& name : names)
    text += (text.empty() ? "" : ", ") + name;
  return text;
}

} // namespace

int runShow(const Arguments& arguments, Output& output) {
  Session session(arguments.words()[0], arguments);
  if (!session.load()) return failed;
  const TargetItem& target = session.target();
  const EcuSummary summary = *summaryOf(session.database());
  line(output, "Name", target.name());
  line(output, "Generic name", target.Group());
  line(output, "Function", summary.TextFunction);
  line(output, "Address", summary.TextAdresse + " (" + std::to_string(target.Address()) + ")");
  line(output, "Logical address", target.LogicalAddress());
  line(output, "Protocol", summary.TextProtocole);
  line(output, "Endianness", target.Parametres()->LittleEndian ? "little" : "big");
  line(output, "Language", target.Langue());
  line(output, "Projects", joined(target.Projects));
  line(output, "Identifications", countOf(target.AutoIdents));
  line(output, "Data", countOf(target.datas()));
  line(output, "Requests", countOf(target.Requests()));
  line(output, "Devices", countOf(target.Organes()));
  int screens = 0;
  forEachScreen(target, [&](const ScreenItem&) { ++screens; });
  line(output, "Screens",
       std::to_string(screens) + " in " + countOf(target.Categories) + " categories");
  return done;
}

} // namespace kelmar::cli
