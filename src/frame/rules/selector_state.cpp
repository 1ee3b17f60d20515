// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/selector_state.h"

namespace kelmar {

SelectorControls controlsFor(const SelectorState& state) {
  const bool open = state.ecuOpen && !state.creating;
  SelectorControls controls;
  controls.TBtoolbar = !state.creating;
  controls.ecuSelector1 = !state.creating;
  controls.save = open;
  controls.cancel = open && state.edited;
  // A new ECU is given its name while its address is chosen; its group is empty.
  controls.TxEcuName = open || state.creating;
  controls.txGenericName = open;
  controls.lstProjects = open && state.projectsKnown;
  controls.LabelFunction = open;
  controls.cmdLinkNewPDM = open && state.httpAddress;
  controls.changeFunctionShown = open && state.changingFunction;
  controls.cmdChangeFunctionOK = controls.changeFunctionShown && state.functionChosen;
  controls.newEcuShown = state.creating;
  controls.detectShown = !state.creating;
  controls.reportShown = open && state.itemsNotKept;
  return controls;
}

} // namespace kelmar
