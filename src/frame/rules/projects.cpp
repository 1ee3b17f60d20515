// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/projects.h"

#include "base/text.h"
#include "xml/document.h"

#include <algorithm>

namespace kelmar {

namespace {

/// As the names are keyed: without regard to case.
bool holds(const ProjectNames& projects, const std::string& name) {
  return std::any_of(projects.begin(), projects.end(), [folded = foldCase(name)](const auto& held) {
    return foldCase(held) == folded;
  });
}

} // namespace

std::optional<std::vector<std::string>> projectCodes(const std::string& file,
                                                     platform::Fetch* fetch) {
  xml::Document document;
  if (file.empty() || !document.load(file, fetch)) return std::nullopt;
  std::vector<std::string> codes;
  for (const xml::Node project : document.selectNodes("/projects/Manufacturer/project[@code]"))
    codes.emplace_back(project.attribute("code").value());
  return codes;
}

ProjectList::ProjectList(const std::string& allProjects, const std::vector<std::string>& codes) {
  entries_.push_back({allProjects, false});
  for (const std::string& code : codes)
    entries_.push_back({code, false});
}

void ProjectList::show(const ProjectNames& projects) {
  for (std::size_t i = 1; i < entries_.size(); ++i)
    entries_[i].marked = holds(projects, entries_[i].text);
  followOthers();
}

void ProjectList::mark(std::size_t index, bool marked) {
  entries_.at(index).marked = marked;
  if (index == 0)
    for (Entry& entry : entries_)
      entry.marked = marked;
  followOthers();
}

void ProjectList::writeTo(ProjectNames& projects) const {
  projects.clear();
  for (std::size_t i = 1; i < entries_.size(); ++i)
    // A code may stand twice in the projects file, for two manufacturers.
    if (entries_[i].marked && !holds(projects, entries_[i].text)) projects.Add(entries_[i].text);
}

void ProjectList::followOthers() {
  if (entries_.empty()) return;
  entries_.front().marked =
      entries_.size() > 1 && std::all_of(entries_.begin() + 1, entries_.end(),
                                         [](const Entry& entry) { return entry.marked; });
}

} // namespace kelmar
