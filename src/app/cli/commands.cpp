// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/commands.h"

#include "app/cli/dump_json.h"
#include "app/cli/ecu_session.h"
#include "app/cli/one_line.h"
#include "app/cli/summary.h"
#include "app/cli/uses.h"
#include "base/version.h"

namespace kelmar::cli {

namespace {

template <class Item>
Item* demand(Item* item, const char* kind, const std::string& name) {
  if (!item) throw Failure(1, "", std::string(kind) + " '" + name + "' not found");
  return item;
}

template <class Collection>
auto* itemNamed(const std::shared_ptr<Collection>& items, const std::string& name) {
  return items ? items->ItemName(name) : nullptr;
}

DataItem* dataNamed(const TargetItem& target, const std::string& name) {
  return demand(itemNamed(target.datas(), name), "Data", name);
}

RequestItem* requestNamed(const TargetItem& target, const std::string& name) {
  return demand(itemNamed(target.Requests(), name), "Request", name);
}

OrganeItem* deviceNamed(const TargetItem& target, const std::string& name) {
  return demand(itemNamed(target.Organes(), name), "Device", name);
}

void change(TargetItem& target, const CommandLine& line) {
  switch (line.command) {
  case Command::RenameData:
    return target.RenameData(dataNamed(target, line.name), line.newName);
  case Command::RenameRequest:
    return target.RenameRequest(requestNamed(target, line.name), line.newName);
  case Command::RenameDevice:
    return target.RenameDevice(deviceNamed(target, line.name), line.newName);
  case Command::DeleteData:
    return target.DeleteData(dataNamed(target, line.name));
  case Command::DeleteRequest:
    return target.DeleteRequest(requestNamed(target, line.name));
  case Command::DeleteDevice:
    return target.DeleteDevice(deviceNamed(target, line.name));
  default:
    return; // the others write what they read
  }
}

int changeAndSave(const CommandLine& line, const Messages& messages) {
  OmnikorLibXml& database = openEcu(line, messages);
  demandSavable(database);
  change(*database.ActiveTarget, line);
  saveEcu(database, line, messages);
  return done;
}

int show(const CommandLine& line, const Messages& messages, Output& out) {
  printSummary(out, openEcu(line, messages), line.file);
  return done;
}

int dump(const CommandLine& line, const Messages& messages, Output& out) {
  dumpTarget(out, *openEcu(line, messages).ActiveTarget);
  return done;
}

int printUses(const CommandLine& line, const Messages& messages, Output& out) {
  const TargetItem& target = *openEcu(line, messages).ActiveTarget;
  bool found = false;
  const auto print = [&](const Use& use) {
    found = true;
    out << use.kind << '\t' << oneLine(use.where) << '\t' << oneLine(use.detail) << '\n';
  };
  // Of a data and a request of the same name both count.
  const DataItem* data = itemNamed(target.datas(), line.name);
  const RequestItem* request = itemNamed(target.Requests(), line.name);
  if (data) forEachUseOfData(target, data->dataName(), print);
  if (request) forEachUseOfRequest(target, request->requestName, print);
  if (!data && !request) throw Failure(1, "", "Data or request '" + line.name + "' not found");
  return found ? done : failed;
}

/// What the lines about a failure begin with.
std::string subjectOf(const CommandLine& line) {
  if (!line.file.empty()) return line.file;
  return line.site.empty() ? "site" : line.site;
}

} // namespace

int runCommand(const CommandLine& line, const Messages& messages, Output& out) {
  switch (line.command) {
  case Command::Help:
    out << commandLineHelp();
    return done;
  case Command::Version:
    out << "kelmar-cli " << applicationVersion << '\n' << applicationCopyright << '\n';
    return done;
  case Command::Show:
    return show(line, messages, out);
  case Command::Dump:
    return dump(line, messages, out);
  case Command::Uses:
    return printUses(line, messages, out);
  case Command::Find:
    return findEcu(line, messages, out);
  default:
    return changeAndSave(line, messages);
  }
}

int runCommandLine(const std::vector<std::string>& words, Output& out) {
  const CommandLine line = readCommandLine(words);
  if (!line.mistake.empty()) {
    Messages::wrongUse(line.mistake);
    return wrongUse;
  }
  const Messages messages(line.verbose);
  int code = failed;
  try {
    code = runCommand(line, messages, out);
  } catch (const Failure& failure) {
    messages.error(subjectOf(line), failure);
  } catch (const ReaderGone&) {
    return failed; // whoever read the output knows that it is not all
  } catch (const std::bad_alloc&) {
    messages.error(subjectOf(line), Failure(7, "", "Out of memory"));
  } catch (const std::exception& unexpected) {
    messages.error(subjectOf(line), Failure(1, "", unexpected.what()));
  }
  try {
    out.flush();
  } catch (const Failure& failure) {
    messages.error("standard output", failure);
    return failed;
  } catch (const ReaderGone&) {
    return failed;
  }
  return code;
}

} // namespace kelmar::cli
