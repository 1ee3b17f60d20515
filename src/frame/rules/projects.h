// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/target_item.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kelmar::platform {
class Fetch;
}

namespace kelmar {

/// The codes of all projects of a projects file, in its order. None when it cannot be read.
std::optional<std::vector<std::string>> projectCodes(const std::string& file,
                                                     platform::Fetch* fetch = nullptr);

/// The list of projects on the first page. Its first entry, "All projects", stands for every other
/// one: it is marked when all others are, marking it marks them, and it is never written as a
/// project itself.
class ProjectList {
 public:
  struct Entry {
    std::string text;
    bool marked = false;
    friend bool operator==(const Entry&, const Entry&) = default;
  };

  ProjectList() = default;
  ProjectList(const std::string& allProjects, const std::vector<std::string>& codes);

  const std::vector<Entry>& entries() const { return entries_; }

  /// Marks what the ECU belongs to.
  void show(const ProjectNames& projects);
  /// A person marked an entry, or took the mark away. Raises std::out_of_range.
  void mark(std::size_t index, bool marked);
  /// The ECU belongs to what is marked, and to nothing else.
  void writeTo(ProjectNames& projects) const;

 private:
  void followOthers();

  std::vector<Entry> entries_;
};

} // namespace kelmar
