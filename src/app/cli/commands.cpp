// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/commands.h"

#include "app/cli/session.h"
#include "base/version.h"

#include <algorithm>
#include <limits>
#include <new>

namespace kelmar::cli {

namespace {

const Option findOptions[] = {{"--site"},    {"--function"}, {"--protocol"},
                              {"--diag"},    {"--supplier"}, {"--soft"},
                              {"--version"}, {"-v", false},  {"--help", false}};

const Option writingOptions[] = {{"--yes", false}, {"-v", false},     {"--site"},
                                 {"--lang"},       {"--help", false}, {"-o"}};

const Option copyOptions[] = {{"--yes", false},  {"-v", false},     {"--site"},      {"--lang"},
                              {"--help", false}, {"--text", false}, {"--xml", false}};

const Option pasteOptions[] = {{"--yes", false}, {"-v", false},  {"--site"},
                               {"--lang"},       {"-i"},         {"--help", false},
                               {"-o"},           {"--encoding"}, {"--answer"}};

constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();

const Command table[] = {
    {"show", "FILE", "a readable summary", 1, 1, fileOptions, runShow},
    {"dump", "FILE", "the whole model as JSON", 1, 1, fileOptions, runDump},
    {"save", "FILE [-o OUT] [--encoding NAME]", "load and write back", 1, 1, savingOptions,
     runSave},
    {"uses", "FILE NAME", "who uses a data or a request", 2, 2, fileOptions, runUses},
    {"rename-data", "FILE OLD NEW [-o OUT]", "rename a data, its users follow", 3, 3, savingOptions,
     runRenameData},
    {"rename-request", "FILE OLD NEW [-o OUT]", "rename a request, its users follow", 3, 3,
     savingOptions, runRenameRequest},
    {"rename-device", "FILE OLD NEW [-o OUT]", "rename a device", 3, 3, savingOptions,
     runRenameDevice},
    {"delete-data", "FILE NAME [-o OUT]", "delete a data with what hangs on it", 2, 2,
     savingOptions, runDeleteData},
    {"delete-request", "FILE NAME [-o OUT]", "delete a request with what hangs on it", 2, 2,
     savingOptions, runDeleteRequest},
    {"delete-device", "FILE NAME [-o OUT]", "delete a device", 2, 2, savingOptions,
     runDeleteDevice},
    {"copy", "FILE data|requests [NAME...] --text|--xml", "print what the editor would copy", 2,
     anyNumber, copyOptions, runCopy},
    {"paste", "FILE data|requests -i INPUT [--answer yes|no|cancel] [-o OUT]",
     "paste a file as the editor would", 2, 2, pasteOptions, runPaste},
    {"normalize-replies", "FILE [-o OUT]", "make the reply templates agree with the protocol", 1, 1,
     savingOptions, runNormalizeReplies},
    {"hex-export", "FILE REQUEST OUT", "write the sent bytes of a request as Intel-hex", 3, 3,
     fileOptions, runHexExport},
    {"hex-import", "FILE REQUEST HEX [-o OUT]", "read the sent bytes of a request from Intel-hex",
     3, 3, savingOptions, runHexImport},
    {"rvt", "FILE [REQUEST...] -o OUT", "write the bench test scenario of requests", 1, anyNumber,
     writingOptions, runRvt},
    {"find", "--site DIR --function N [--protocol N --diag N --supplier S --soft S --version S]",
     "the ECU file that fits an identification best", 0, 0, findOptions, runFind},
};

void printHelp(Output& output) {
  output << "Usage: kelmar-cli COMMAND ...\n\nCommands:\n";
  for (const Command& command : table) {
    output << "  " << command.name << " " << command.usage << "\n      " << command.summary << "\n";
  }
  output << "\nOptions:\n"
            "  -o OUT           write to OUT; without it in place, with a backup FILE.bak\n"
            "  --encoding NAME  UTF-8, UTF-16, ISO-8859-1 or windows-1252\n"
            "  --text, --xml    the form of what is copied\n"
            "  -i INPUT         the file that is pasted\n"
            "  --answer ANSWER  yes, no or cancel: answers all boxes; without it the first button\n"
            "  --site DIR       the data root, whose encoding and style sheet count\n"
            "  --lang CODE      language of the names of failure and device types\n"
            "  --yes            open files of the sibling tool; they are never written\n"
            "  -v               notes on standard error\n"
            "  --               end of the options\n"
            "  --help, --version\n\n"
            "Exit codes: 0 done, 1 failure or no match, 2 wrong use.\n";
}

int complainOfUse(const std::string& text) {
  complain(text + "; see kelmar-cli --help");
  return wrongUse;
}

/// The commands behind all that is the same for them.
int runCommand(const std::vector<std::string>& words, Output& output) {
  if (words.empty()) return complainOfUse("no command");
  if (words[0] == "--help" || words[0] == "-h") {
    printHelp(output);
    return done;
  }
  if (words[0] == "--version") {
    output << "kelmar-cli " << applicationVersion << "\n";
    return done;
  }
  const auto command = std::find_if(std::begin(table), std::end(table),
                                    [&](const Command& each) { return words[0] == each.name; });
  if (command == std::end(table)) return complainOfUse("unknown command " + words[0]);
  try {
    const Arguments arguments({words.begin() + 1, words.end()}, command->options);
    const std::size_t count = arguments.words().size();
    if (arguments.has("--help")) {
      printHelp(output);
      return done;
    }
    if (count < command->leastWords || count > command->mostWords)
      throw WrongUse(std::string("usage: kelmar-cli ") + command->name + " " + command->usage);
    return command->run(arguments, output);
  } catch (const WrongUse& use) {
    return complainOfUse(use.what());
  } catch (const Failure& failure) {
    complain(failureLine(words[0], failure));
  } catch (const std::bad_alloc&) {
    complain(failureLine(words[0], Failure(7, "", "Out of memory")));
  } catch (const std::exception& unexpected) {
    complain(failureLine(words[0], Failure(1, "", unexpected.what())));
  }
  return failed;
}

} // namespace

int run(const std::vector<std::string>& words, Output& output) {
  try {
    const int code = runCommand(words, output);
    output.flush();
    return code;
  } catch (const OutputFailed&) {
    return failed;
  }
}

} // namespace kelmar::cli
