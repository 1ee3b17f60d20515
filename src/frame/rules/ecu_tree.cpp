// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/ecu_tree.h"

#include "base/text.h"
#include "common/site_parameters.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <filesystem>
#include <memory>
#include <set>
#include <sys/stat.h>
#include <utility>

namespace kelmar {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t deepest = 64;
constexpr std::size_t mostEntries = 250'000;
// A folder that is reached by a link may hold links in its turn. Without a bound a few folders that
// name one another would make as many paths as there are orders of them.
constexpr std::size_t mostLinksOnAPath = 4;
constexpr std::string_view extension = ".xml";

std::string systemText(int error) {
  const char* text = ::strerrordesc_np(error);
  return text ? text : "system error " + std::to_string(error);
}

// Only such a name survives the way through the window and back.
bool isUtf8(std::string_view text) {
  const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  return std::all_of(text.begin(), text.end(), isAscii) ||
         fromCodePoints(toCodePoints(text)) == text;
}

bool isEcuFileName(std::string_view name) {
  return name.size() > extension.size() &&
         lowerCase(name.substr(name.size() - extension.size())) == extension;
}

class TreeReader {
 public:
  TreeReader(EcuTree& tree, const std::string& dataRoot) : tree_(tree) {
    std::error_code ignored;
    dataRoot_ = fs::canonical(dataRoot, ignored);
  }

  void readRoot(const std::string& folder) {
    tree_.root.address = folder;
    tree_.root.name = folder.substr(folder.rfind('/') + 1);
    tree_.root.search = searchForm(tree_.root.name);
    struct stat status {};
    if (::stat(folder.c_str(), &status) != 0) {
      tell(folder, systemText(errno));
      return;
    }
    above_.push_back({status.st_dev, status.st_ino});
    read(tree_.root, 0);
  }

 private:
  using Identity = std::pair<dev_t, ino_t>;
  enum class Kind { File, Folder, LinkedFolder, Other };

  void tell(const std::string& path, const std::string& why) {
    tree_.troubles.push_back(path + ": " + why);
  }

  void read(EcuTreeNode& node, std::size_t links) {
    std::vector<std::pair<std::string, Kind>> entries;
    if (!list(node.address, entries)) return;
    for (auto& [name, kind] : entries) {
      const std::string path = node.address + (node.address.ends_with('/') ? "" : "/") + name;
      if (!isUtf8(name)) {
        tell(node.address, "an entry is not shown, its name is not UTF-8");
        continue;
      }
      if (tree_.files + folders_ >= mostEntries) {
        if (!std::exchange(full_, true))
          tell(path, "not shown, nor what follows: more than " + std::to_string(mostEntries) +
                         " entries");
        return;
      }
      EcuTreeNode child;
      child.address = path;
      child.isFile = kind == Kind::File;
      child.name = child.isFile ? name.substr(0, name.size() - extension.size()) : name;
      child.search = searchForm(child.name);
      if (child.isFile)
        ++tree_.files;
      else if (!readFolder(child, kind == Kind::LinkedFolder ? links + 1 : links))
        continue;
      node.children.push_back(std::move(child));
    }
    std::sort(node.children.begin(), node.children.end(),
              [](const EcuTreeNode& a, const EcuTreeNode& b) {
                if (a.isFile != b.isFile) return b.isFile;
                const int order = compareNaturally(a.search, b.search);
                return order != 0 ? order < 0 : a.name < b.name;
              });
  }

  bool readFolder(EcuTreeNode& node, std::size_t links) {
    struct stat status {};
    if (::stat(node.address.c_str(), &status) != 0) {
      tell(node.address, systemText(errno));
      return false;
    }
    const Identity identity{status.st_dev, status.st_ino};
    if (std::find(above_.begin(), above_.end(), identity) != above_.end()) {
      tell(node.address, "not followed, the link leads back to a folder above it");
      return false;
    }
    if (links > mostLinksOnAPath || above_.size() >= deepest) {
      tell(node.address, "not followed, too deep");
      return false;
    }
    ++folders_;
    above_.push_back(identity);
    read(node, links);
    above_.pop_back();
    return true;
  }

  bool list(const std::string& folder, std::vector<std::pair<std::string, Kind>>& entries) {
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(::opendir(folder.c_str()), ::closedir);
    if (!directory) {
      tell(folder, systemText(errno));
      return false;
    }
    while (const dirent* entry = ::readdir(directory.get())) {
      const std::string name = entry->d_name;
      if (name.starts_with('.')) continue;
      const Kind kind = kindOf(folder + "/" + name, entry->d_type);
      if (kind == Kind::Other || (kind == Kind::File && !isEcuFileName(name))) continue;
      entries.emplace_back(name, kind);
    }
    return true;
  }

  Kind kindOf(const std::string& path, unsigned char type) {
    if (type == DT_REG) return Kind::File;
    if (type == DT_DIR) return Kind::Folder;
    if (type != DT_LNK && type != DT_UNKNOWN) return Kind::Other;
    struct stat status {};
    // A link to nothing is no fault of the tree: the file it named has gone.
    if (::lstat(path.c_str(), &status) != 0) return Kind::Other;
    const bool link = S_ISLNK(status.st_mode);
    if (link && ::stat(path.c_str(), &status) != 0) return Kind::Other;
    const bool folder = S_ISDIR(status.st_mode);
    if (!folder && !(S_ISREG(status.st_mode) && isEcuFileName(path))) return Kind::Other;
    if (link && leavesDataRoot(path)) {
      tell(path, "not followed, the link leaves the data root");
      return Kind::Other;
    }
    return !folder ? Kind::File : link ? Kind::LinkedFolder : Kind::Folder;
  }

  bool leavesDataRoot(const std::string& path) const {
    std::error_code error;
    const fs::path real = fs::canonical(path, error);
    return error ||
           std::mismatch(dataRoot_.begin(), dataRoot_.end(), real.begin(), real.end()).first !=
               dataRoot_.end();
  }

  EcuTree& tree_;
  fs::path dataRoot_;
  std::vector<Identity> above_;
  std::size_t folders_ = 0;
  bool full_ = false;
};

void collect(const EcuTreeNode& node, std::vector<std::string>& files) {
  if (node.isFile) files.push_back(node.address);
  for (const EcuTreeNode& child : node.children)
    collect(child, files);
}

} // namespace

EcuTree readEcuTree(const std::string& folder, const std::string& dataRoot) {
  EcuTree tree;
  TreeReader(tree, dataRoot).readRoot(folder);
  return tree;
}

std::vector<std::string> ecuFilesOf(const EcuTree& tree) {
  std::vector<std::string> files;
  files.reserve(tree.files);
  collect(tree.root, files);
  std::sort(files.begin(), files.end());
  return files;
}

std::vector<std::string> ecuFilesOf(const SiteParameters& site) {
  std::set<std::string> files;
  for (const DataSet& set : site.dataSets)
    for (std::string& file : ecuFilesOf(readEcuTree(set.folder, site.root)))
      files.insert(std::move(file));
  return {files.begin(), files.end()};
}

} // namespace kelmar
