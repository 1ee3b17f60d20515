// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/site_settings.h"

#include "base/failure.h"
#include "base/text.h"
#include "platform/files.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace kelmar::platform {

namespace {

using Values = std::map<std::string, std::string>;

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::string trimmed(std::string_view text) {
  const auto isSpace = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
  while (!text.empty() && isSpace(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && isSpace(text.back()))
    text.remove_suffix(1);
  return std::string(text);
}

// The key of a line "key = value"; empty for an empty line and for a comment.
std::string keyOf(const std::string& line) {
  const std::size_t sign = line.find('=');
  const std::string key = trimmed(std::string_view(line).substr(0, sign));
  return sign == std::string::npos || key.starts_with('#') ? std::string() : key;
}

std::string contentOf(const std::string& path) {
  try {
    return !path.empty() && fileExists(path) ? readFile(path) : std::string();
  } catch (const Failure&) {
    return {};
  }
}

void readInto(Values& values, const std::string& path) {
  for (const std::string& line : split(contentOf(path), "\n")) {
    const std::string key = keyOf(line);
    if (!key.empty()) values[key] = trimmed(std::string_view(line).substr(line.find('=') + 1));
  }
}

bool isAddress(const std::string& site) {
  return startsWithFolded(site, "http:") || startsWithFolded(site, "https:") ||
         startsWithFolded(site, "file:");
}

std::string normalisedSite(const std::string& site) {
  if (site.empty()) return site;
  if (!isAddress(site)) return absolutePath(site);
  const std::size_t last = site.find_last_not_of('/');
  return site.substr(0, last + 1);
}

bool isSite(const std::string& folder) {
  return fileExists(joinPath(folder, "parameters.xml"));
}

std::string installedSite(const std::string& programFolder) {
  const std::string folder = absolutePath(joinPath(programFolder, "../share/kelmar/site"));
  return isSite(folder) ? folder : std::string();
}

// A build stands in a folder of its source tree, however deep.
std::string siteOfSourceTree(std::string folder) {
  while (true) {
    const std::string site = joinPath(folder, "site");
    if (isSite(site)) return site;
    const std::string parent = std::filesystem::path(folder).parent_path().string();
    if (parent.empty() || parent == folder) return {};
    folder = parent;
  }
}

// The code goes into paths of help pages, so nothing but letters, digits and "-" may be in it.
std::string languageCode(const std::string& text) {
  const std::string code = trimmed(text);
  const bool plain = std::all_of(code.begin(), code.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
  });
  return plain ? code : std::string();
}

std::string firstOf(std::initializer_list<std::string> candidates) {
  for (const std::string& candidate : candidates) {
    if (!candidate.empty()) return candidate;
  }
  return {};
}

} // namespace

std::string SiteStart::runningProgramFolder() {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::string() : program.parent_path().string();
}

std::string userSiteFile() {
  const std::string folder = desktopFolder("XDG_CONFIG_HOME", ".config");
  return folder.empty() ? folder : joinPath(folder, "kelmar/site.conf");
}

std::string localeLanguage() {
  const std::string locale =
      firstOf({environment("LC_ALL"), environment("LC_MESSAGES"), environment("LANG")});
  const std::string code = locale.substr(0, locale.find_first_of("_.@"));
  return code == "C" || code == "POSIX" ? std::string() : languageCode(lowerCase(code));
}

SiteSettings::SiteSettings(const SiteStart& start) {
  readInto(values_, start.systemFile);
  readInto(values_, userSiteFile());

  language_ = firstOf({languageCode(start.language), languageCode(environment("KELMAR_LANG")),
                       languageCode(value("language")), localeLanguage(), "en"});

  const std::string chosen = normalisedSite(firstOf({start.site, environment("KELMAR_SITE")}));
  dataRoot_ = firstOf({chosen, normalisedSite(value("site"))});
  if (dataRoot_.empty() && !start.programFolder.empty())
    dataRoot_ = firstOf(
        {installedSite(start.programFolder), siteOfSourceTree(absolutePath(start.programFolder))});

  const std::string local = localPathOf(chosen);
  paths_ = PathTools(
      firstOf({isAddress(local) ? std::string() : local, normalisedSite(value("dataFolder"))}));
}

bool SiteSettings::UseRemoteFlag() const {
  const std::string text = lowerCase(value("useRemote"));
  return text == "1" || text == "true" || text == "yes";
}

std::optional<std::string> SiteSettings::ZEM_RemoteDataServer() const {
  const std::string server = value("remoteDataServer");
  return server.empty() ? std::nullopt : std::optional(server);
}

void SiteSettings::storeLanguage(const std::string& code) {
  const std::string wanted = languageCode(code);
  const std::string path = userSiteFile();
  if (wanted.empty() || path.empty())
    throw Failure(FileAccessFailed, "storeLanguage",
                  wanted.empty() ? "\"" + code + "\" is no language code"
                                 : "There is no home folder to keep the language in");
  const std::string line = "language = " + wanted;
  std::string text;
  bool stored = false;
  for (const std::string& old : split(contentOf(path), "\n")) {
    if (keyOf(old) != "language") {
      text += old + "\n";
    } else if (!stored) {
      text += line + "\n";
      stored = true;
    }
  }
  while (text.ends_with("\n\n") || text == "\n")
    text.pop_back();
  if (!stored) text += line + "\n";
  CreateFolderChain("", folderOf(path));
  writeWhole(path, text);
  values_["language"] = wanted;
  language_ = wanted;
}

std::string SiteSettings::value(const std::string& key) const {
  const auto found = values_.find(key);
  return found == values_.end() ? std::string() : found->second;
}

} // namespace kelmar::platform
