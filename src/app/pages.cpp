// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/pages.h"

#include "editors/uce_datas.h"
#include "editors/uce_requests.h"
#include "frame/uce_edit_param.h"

namespace kelmar {

omnikorEditor::PageMakers pageMakers(const KelmarForm::Machine& machine) {
  return {
      {"UCEparam", [machine](QWidget* parent) { return new UceEditParam(machine.person, parent); }},
      {"datas",
       [machine](QWidget* parent) {
         return new UceDatas(machine.person, machine.site.DataRoot(), parent);
       }},
      {"requests",
       [machine](QWidget* parent) {
         return new UceRequests(machine.person, &machine.settings, parent);
       }},
  };
}

} // namespace kelmar
