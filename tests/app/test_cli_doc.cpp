// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli_program.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

// The examples of docs/cli.md are run as they stand there, in a copy of the bundled site.

namespace kelmar {
namespace {

using support::bytesOf;
using support::Cli;
using support::CliResult;

namespace fs = std::filesystem;

struct Example {
  int line = 0;
  std::string command;
  std::string output;
};

/// The blocks marked "console": a line "$ COMMAND", and below it what is printed.
std::vector<Example> examples() {
  std::ifstream document(KELMAR_SOURCE "/docs/cli.md");
  std::vector<Example> found;
  bool inBlock = false;
  std::string line;
  for (int number = 1; std::getline(document, line); ++number) {
    if (line.starts_with("```")) {
      inBlock = line == "```console";
    } else if (inBlock && line.starts_with("$ ")) {
      found.push_back({number, line.substr(2), ""});
    } else if (inBlock && !found.empty()) {
      found.back().output += line + "\n";
    }
  }
  return found;
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
    text.replace(at, from.size(), to);
  return text;
}

TEST(CliDocument, EveryExample_PrintsWhatItSays) {
  Cli cli;
  fs::remove_all(cli.file("site"));
  fs::copy(KELMAR_SITE, cli.file("site"), fs::copy_options::recursive);
  const std::vector<Example> all = examples();
  EXPECT_GE(all.size(), 15u);
  for (const Example& example : all) {
    const std::string output = cli.shell(example.command).out;
    // The document's reader works in another folder.
    EXPECT_EQ(replaced(output, cli.folder().path().string(), "/srv/diagnostics"), example.output)
        << "docs/cli.md, line " << example.line;
  }
}

TEST(CliDocument, EveryCommandAndOption_IsNamed) {
  const std::string document = bytesOf(KELMAR_SOURCE "/docs/cli.md");
  std::istringstream help(Cli().run({"--help"}).out);
  std::string line;
  std::size_t count = 0;
  while (std::getline(help, line)) {
    std::istringstream words(line);
    std::string word;
    words >> word;
    const bool isCommand = line.starts_with("  ") && !line.starts_with("   ");
    if (!isCommand || word == "--") continue;
    if (word.ends_with(",")) word.pop_back();
    EXPECT_NE(document.find("`" + word), std::string::npos) << word;
    ++count;
  }
  EXPECT_GE(count, 15u);
}

} // namespace
} // namespace kelmar
