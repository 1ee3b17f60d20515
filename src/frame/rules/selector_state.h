// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelmar {

/// What decides which controls of the first page may be used.
struct SelectorState {
  bool ecuOpen = false;          ///< there is an ECU, and its load did not fail
  bool creating = false;         ///< the panel of a new ECU is shown
  bool edited = false;           ///< the first page has changes that are not saved
  bool changingFunction = false; ///< the choice of a function is shown
  bool functionChosen = false;   ///< one of its entries is selected
  bool httpAddress = false;      ///< the open ECU came from an "http:" address
  bool projectsKnown = false;    ///< the list of projects has entries
  bool itemsNotKept = false;     ///< the load report of the open file is not empty
};

/// Which controls are enabled, and which are shown.
struct SelectorControls {
  bool TBtoolbar = false;           ///< enabled
  bool ecuSelector1 = false;        ///< enabled
  bool save = false;                ///< the button `Save`
  bool cancel = false;              ///< the button `cancel`
  bool TxEcuName = false;           ///< enabled
  bool txGenericName = false;       ///< enabled
  bool lstProjects = false;         ///< enabled
  bool LabelFunction = false;       ///< offers its menu
  bool cmdLinkNewPDM = false;       ///< enabled
  bool cmdChangeFunctionOK = false; ///< enabled
  bool changeFunctionShown = false;
  bool newEcuShown = false; ///< UctlNewEcuAddr1
  bool detectShown = false; ///< FrDetect and framProjects
  bool reportShown = false; ///< the line under the summary
  friend bool operator==(const SelectorControls&, const SelectorControls&) = default;
};

SelectorControls controlsFor(const SelectorState& state);

} // namespace kelmar
