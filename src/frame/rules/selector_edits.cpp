// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/selector_edits.h"

#include "base/text.h"
#include "frame/rules/addressing_ecu.h"

namespace kelmar {

void SelectorEdits::setName(OmnikorLibXml& database, const std::string& name) {
  const std::string clean = CleanSpaces(name);
  TargetItem* target = database.ActiveTarget.get();
  if (!target || clean.empty() || clean == target->name()) return;
  if (!name_) name_ = target->name();
  target->setName(clean);
}

void SelectorEdits::setGroup(OmnikorLibXml& database, const std::string& group) {
  const std::string clean = CleanSpaces(group);
  TargetItem* target = database.ActiveTarget.get();
  if (!target || clean == target->Group()) return;
  if (!group_) group_ = target->Group();
  target->setGroup(clean);
}

void SelectorEdits::setFunction(OmnikorLibXml& database, const NewEcu& function) {
  if (!database.ActiveTarget) return;
  keepFunction(*database.ActiveTarget);
  changeFunction(database, function);
}

void SelectorEdits::setLogicalAddress(OmnikorLibXml& database, const std::string& logicalAddress) {
  if (!database.ActiveTarget) return;
  keepFunction(*database.ActiveTarget);
  database.ActiveTarget->setLogicalAddress(logicalAddress);
}

void SelectorEdits::keepFunction(const TargetItem& target) {
  if (!function_)
    function_ = Function{target.Address(), target.LogicalAddress(), target.Parametres()->canXid,
                         target.Parametres()->canRid};
}

void SelectorEdits::setProjects(OmnikorLibXml& database, const ProjectList& projects) {
  if (!database.ActiveTarget) return;
  ProjectNames& names = database.ActiveTarget->Projects;
  if (!projects_) projects_.emplace(names.begin(), names.end());
  projects.writeTo(names);
}

void SelectorEdits::takeBack(OmnikorLibXml& database) {
  if (TargetItem* target = database.ActiveTarget.get()) {
    if (name_) target->setName(*name_);
    if (group_) target->setGroup(*group_);
    if (function_) {
      target->setAddress(function_->address);
      target->setLogicalAddress(function_->logicalAddress);
      target->Parametres()->canXid = function_->canXid;
      target->Parametres()->canRid = function_->canRid;
    }
    if (projects_) {
      target->Projects.clear();
      for (const std::string& project : *projects_)
        target->Projects.Add(project);
    }
  }
  forget();
}

} // namespace kelmar
