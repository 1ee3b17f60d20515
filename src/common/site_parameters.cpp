// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/site_parameters.h"

#include "base/failure.h"
#include "base/text.h"
#include "platform/files.h"
#include "xml/document.h"
#include "xml/encoding.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace kelmar {

namespace {

namespace fs = std::filesystem;

constexpr const char* defaultAddressingFile = "GenericAddressing.xml";

[[noreturn]] void refuse(const std::string& text) {
  throw Failure(1, "readSiteParameters", text);
}

std::string trimmed(const std::string& text) {
  constexpr const char* blanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// "http:", "file:" and the drive letters of other systems.
bool hasScheme(const std::string& path) {
  const std::size_t colon = path.find(':');
  return colon != std::string::npos && colon > 0 && path.find('/') > colon;
}

// The system's own English words, whatever the locale.
std::string systemText(int error) {
  const char* text = ::strerrordesc_np(error);
  return text ? text : "system error " + std::to_string(error);
}

bool isBelow(const fs::path& folder, const fs::path& path) {
  return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first ==
         folder.end();
}

/// Reads one parameter file.
class Reader {
 public:
  Reader(const std::string& dataRoot, const std::string& parametersFile) {
    if (dataRoot.empty()) refuse("No data root is set, so there is no site");
    const std::string local = platform::localPathOf(dataRoot);
    if (hasScheme(local)) refuse(dataRoot + ": a site is a folder of this machine");
    site_.root = platform::absolutePath(local);
    while (site_.root.size() > 1 && site_.root.back() == '/')
      site_.root.pop_back();
    site_.file = site_.root;
    if (!platform::folderExists(site_.root)) refuse(site_.root + ": there is no such folder");
    site_.file = inside(parametersFile, "the name of the parameter file");
  }

  SiteParameters read() {
    if (!platform::fileExists(site_.file)) refuse(site_.file + ": there is no such file");
    if (!document_.load(site_.file)) refuse(site_.file + ": " + document_.parseError().reason);
    const xml::Node site = siteElement();
    site_.name = site.attribute("name").value();
    site_.key = site.attribute("key").value();
    for (const xml::Node description : site.children("description"))
      site_.descriptions.emplace(description.attribute("xml:lang").value(),
                                 trimmed(xml::textOf(description)));
    readDocumentForm(site);
    const std::string addressing = textOf(site, "addressingFile");
    site_.addressingFile = inside(addressing.empty() ? defaultAddressingFile : addressing,
                                  "addressingFile", site.child("addressingFile"));
    if (const std::string projects = textOf(site, "projectsFile"); !projects.empty())
      site_.projectsFile = inside(projects, "projectsFile", site.child("projectsFile"));
    readDataSets(site);
    readDownloads(site);
    return std::move(site_);
  }

 private:
  // A parameter file that is shared with other programs holds the site as one part of "parameter".
  xml::Node siteElement() const {
    const xml::Node root = document_.node().first_child();
    for (xml::Node node = root; node; node = node.next_sibling()) {
      const std::string name = node.name();
      if (node.type() != pugi::node_element) continue;
      if (name == "site") return node;
      if (name == "parameter" && node.child("site")) return node.child("site");
      refuseAt(node, "the root is \"" + name + "\", not \"site\"");
    }
    refuse(site_.file + ": there is no element \"site\"");
  }

  void readDocumentForm(xml::Node site) {
    if (const std::string encoding = textOf(site, "xmlEncoding"); !encoding.empty()) {
      if (!xml::encodingOfName(encoding))
        refuseAt(site.child("xmlEncoding"), "xmlEncoding: unknown encoding \"" + encoding + "\"");
      site_.xmlEncoding = encoding;
    }
    if (site.child("xmlStyleSheet")) site_.xmlStyleSheet = textOf(site, "xmlStyleSheet");
  }

  void readDataSets(xml::Node site) {
    for (const xml::Node node : site.child("dataSets").children("dataSet")) {
      DataSet set;
      set.folder =
          inside(trimmed(node.attribute("folder").value()), "the folder of a data set", node);
      set.label = trimmed(node.attribute("label").value());
      if (set.label.empty()) set.label = platform::fileNameOf(set.folder);
      site_.dataSets.push_back(std::move(set));
    }
    if (site_.dataSets.empty()) {
      const xml::Node place = site.child("dataSets") ? site.child("dataSets") : site;
      refuseAt(place, "the site names no data set (dataSets/dataSet)");
    }
  }

  void readDownloads(xml::Node site) {
    for (const xml::Node urlRef : site.children("urlRef"))
      for (const xml::Node part : urlRef.children("downloads"))
        for (const xml::Node download : part.children("download")) {
          const std::string url = textOf(download, "url");
          site_.downloads.push_back(
              {urlRef.attribute("ref").value(), part.attribute("code").value(),
               download.attribute("code").value(), url.empty() ? textOf(urlRef, "url") : url,
               textOf(download, "filesList")});
        }
  }

  static std::string textOf(xml::Node parent, const char* name) {
    return trimmed(xml::textOf(parent.child(name)));
  }

  [[noreturn]] void refuseAt(xml::Node node, const std::string& reason) const {
    const std::size_t line = node ? document_.lineOf(node) : 0;
    refuse(site_.file + (line > 0 ? ", line " + std::to_string(line) : "") + ": " + reason);
  }

  /// The absolute path of what stands in the file. A site is copied from place to place and comes
  /// from others: what it names must be its own.
  std::string inside(const std::string& written, const std::string& what,
                     xml::Node node = {}) const {
    const std::string path = replaceAll(written, "\\", "/");
    const std::string named = what + ": \"" + written + "\" ";
    if (path.empty()) refuseAt(node, what + " is empty");
    if (path.front() == '/' || hasScheme(path))
      refuseAt(node, named + "is not relative to the data root");
    for (const std::string& step : split(path, "/"))
      if (step == "..") refuseAt(node, named + "leaves the data root");
    const fs::path full = (fs::path(site_.root) / path).lexically_normal();
    std::error_code error;
    const fs::path real = fs::weakly_canonical(full, error);
    if (error) refuseAt(node, named + "cannot be followed: " + systemText(error.value()));
    const fs::path root = fs::canonical(site_.root, error);
    if (error || !isBelow(root, real))
      refuseAt(node, named + "leaves the data root by a symbolic link");
    std::string result = full.string();
    while (result.size() > 1 && result.back() == '/')
      result.pop_back();
    return result;
  }

  SiteParameters site_;
  xml::Document document_;
};

} // namespace

std::string SiteParameters::description(const std::string& lang) const {
  for (const std::string& wanted : {lang, std::string(), std::string("en")})
    if (const auto found = descriptions.find(wanted); found != descriptions.end())
      return found->second;
  return descriptions.empty() ? std::string() : descriptions.begin()->second;
}

SiteParameters readSiteParameters(const std::string& dataRoot, const std::string& parametersFile) {
  return Reader(dataRoot, parametersFile).read();
}

} // namespace kelmar
