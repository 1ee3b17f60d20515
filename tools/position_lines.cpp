// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The lines that the list of placed data copies and pastes, of all requests of an ECU at once, for
// tools/calc_round_trip:
//
//   position_lines copy FILE              prints a line "'REQUEST<tab>SIDE" and the lines of that
//   side position_lines paste FILE INPUT OUT   pastes such lines, and saves to OUT

#include "app/cli/edit_file.h"
#include "app/cli/telling_person.h"
#include "common/tab_text.h"
#include "editors/rules/positions/position_clipboard.h"
#include "platform/files.h"

#include <cstdio>

namespace kelmar::cli {
namespace {

int copyLines(const Arguments& arguments) {
  Session session(arguments.words()[0], arguments);
  if (!session.load()) return failed;
  Output output;
  for (RequestItem* request : *session.target().Requests()) {
    if (!request->DataPositions) continue;
    for (const bool sent : {true, false}) {
      PositionSelection positions;
      for (DataPositionItem* position : *request->DataPositions)
        if (position->param == sent) positions.push_back(position);
      if (positions.empty()) continue;
      bool broken = false;
      const std::string lines = copyPositionsText(positions, broken);
      if (broken) complain("a broken cell in " + request->requestName);
      output << "'" << request->requestName << "\t" << (sent ? "sent" : "received") << "\r\n"
             << lines;
    }
  }
  output.flush();
  return done;
}

int pasteLines(const Arguments& arguments, const std::string& input) {
  return editFile(arguments, [&](TargetItem& target, const Words&) {
    const std::string text = platform::readFile(input);
    TellingPerson person;
    RequestItem* request = nullptr;
    bool sent = false;
    std::string lines;
    const auto finish = [&] {
      if (request) pasteDataPositions(lines, *target.parent, target, *request, sent, person);
      lines.clear();
    };
    TabReader reader(text);
    for (TabLine line; reader.next(line);) {
      if (!line.isRemark()) {
        lines += line.whole + "\n";
        continue;
      }
      finish();
      request = itemNamed(target.Requests(), "Request", line.cells[0].substr(1));
      sent = line.trimmed(1) == "sent";
    }
    finish();
  });
}

int run(const Words& words) {
  if (words.size() == 2 && words[0] == "copy") return copyLines(Arguments({words[1]}, fileOptions));
  if (words.size() == 4 && words[0] == "paste")
    return pasteLines(Arguments({words[1], "-o", words[3]}, savingOptions), words[2]);
  std::fputs("position_lines copy FILE | paste FILE INPUT OUT\n", stderr);
  return wrongUse;
}

} // namespace
} // namespace kelmar::cli

int main(int count, char** words) {
  try {
    return kelmar::cli::run({words + (count > 0), words + count});
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "position_lines: %s\n", failure.what());
  } catch (const kelmar::cli::OutputFailed&) {
    // It has been told.
  }
  return kelmar::cli::failed;
}
