// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli_program.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <grp.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kelmar::support {

namespace fs = std::filesystem;

namespace {

constexpr int notStarted = 126;
constexpr uid_t nobody = 65534;

void sendTo(const std::string& path, int descriptor) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
  if (file < 0 || ::dup2(file, descriptor) < 0) ::_exit(notStarted);
  ::close(file);
}

} // namespace

std::string cliProgram() {
  return KELMAR_CLI;
}

std::ostream& operator<<(std::ostream& stream, const CliResult& result) {
  return stream << "exit code " << result.code << "\n--- output\n"
                << result.out << "--- errors\n"
                << result.err;
}

Cli::Cli() {
  environment = {{"PATH", fs::path(cliProgram()).parent_path().string() + ":/usr/bin:/bin"},
                 {"HOME", streams_.path().string()},
                 {"XDG_CONFIG_HOME", streams_.file("config")},
                 {"LC_ALL", "C.UTF-8"},
                 {"KELMAR_LANG", "en"},
                 {"KELMAR_CLOCK", "2026-01-15T08:30"}};
  // The sanitizers' options of whoever runs the tests stay: they decide what counts as a failure.
  for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"})
    if (const char* value = std::getenv(name)) environment[name] = value;
  // Without a site of its own the program would find the one of the source tree.
  folder_.write("site/parameters.xml", "<site><addressingFile>a.xml</addressingFile><dataSets>"
                                       "<dataSet label=\"All\" folder=\"vehicles\"/></dataSets>"
                                       "</site>");
  environment["KELMAR_SITE"] = folder_.file("site");
}

void Cli::prepareChild() const {
  if (::chdir(folder_.path().c_str()) != 0) ::_exit(notStarted);
  if (asPlainUser && ::geteuid() == 0 &&
      (::setgroups(0, nullptr) != 0 || ::setgid(nobody) != 0 || ::setuid(nobody) != 0))
    ::_exit(notStarted);
}

CliResult Cli::start(const std::vector<std::string>& words) const {
  const std::string out = streams_.file("out"), err = streams_.file("err");
  std::vector<std::string> variables;
  for (const auto& [name, value] : environment)
    variables.push_back(name + "=" + value);
  std::vector<char*> arguments, environ;
  for (const std::string& word : words)
    arguments.push_back(const_cast<char*>(word.c_str()));
  for (const std::string& variable : variables)
    environ.push_back(const_cast<char*>(variable.c_str()));
  arguments.push_back(nullptr);
  environ.push_back(nullptr);

  const pid_t child = ::fork();
  if (child < 0) throw std::runtime_error("no child process");
  if (child == 0) {
    sendTo(out, STDOUT_FILENO);
    sendTo(err, STDERR_FILENO);
    prepareChild();
    if (largestFile) {
      // A write beyond fails like one to a full disk, instead of ending the process.
      std::signal(SIGXFSZ, SIG_IGN);
      const rlimit limit{*largestFile, *largestFile};
      ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ::execve(arguments[0], arguments.data(), environ.data());
    ::_exit(notStarted);
  }
  int status = 0;
  if (::waitpid(child, &status, 0) != child) throw std::runtime_error("the child is lost");
  CliResult result{WIFEXITED(status) ? WEXITSTATUS(status) : -1, bytesOf(out), bytesOf(err)};
  if (result.code == notStarted) throw std::runtime_error(words[0] + " cannot be started");
  return result;
}

CliResult Cli::run(const std::vector<std::string>& arguments) const {
  std::string program = cliProgram();
  if (asPlainUser) {
    program = streams_.file("kelmar-cli");
    fs::copy_file(cliProgram(), program, fs::copy_options::overwrite_existing);
    fs::permissions(streams_.path(), fs::perms(0755));
    fs::permissions(program, fs::perms(0755));
  }
  std::vector<std::string> words = {program};
  if (!redirections.empty())
    words = {"/bin/sh", "-c", "exec \"$0\" \"$@\" " + redirections, program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  return start(words);
}

CliResult Cli::shell(const std::string& line) const {
  CliResult result = start({"/bin/sh", "-c", "exec 2>&1\n" + line});
  return result;
}

} // namespace kelmar::support
