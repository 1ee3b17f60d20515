// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/omnikor_lib_xml.h"
#include "frame/rules/addressing_choice.h"
#include "frame/rules/projects.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelmar {

/// What the first page has changed in the open ECU since it was opened or saved. The fields go into
/// the ECU as soon as they are left, so that whoever saves saves them too; a cancel takes them
/// back.
class SelectorEdits {
 public:
  // Each does its change when there is an open ECU. Texts pass through CleanSpaces.

  /// An empty name changes nothing: an ECU is never without one.
  void setName(OmnikorLibXml& database, const std::string& name);
  void setGroup(OmnikorLibXml& database, const std::string& group);
  void setFunction(OmnikorLibXml& database, const NewEcu& function);
  void setLogicalAddress(OmnikorLibXml& database, const std::string& logicalAddress);
  void setProjects(OmnikorLibXml& database, const ProjectList& projects);

  /// There is something to take back.
  bool any() const { return name_ || group_ || function_ || projects_; }
  /// Gives the ECU what it had; changes that other pages made to other fields stay.
  void takeBack(OmnikorLibXml& database);
  /// The ECU is saved, or another one.
  void forget() { *this = {}; }

 private:
  struct Function {
    std::int32_t address;
    std::string logicalAddress;
    std::int32_t canXid, canRid;
  };
  void keepFunction(const TargetItem& target);

  std::optional<std::string> name_, group_;
  std::optional<Function> function_;
  std::optional<std::vector<std::string>> projects_;
};

} // namespace kelmar
