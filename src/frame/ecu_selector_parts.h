// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "common/site_parameters.h"
#include "frame/ecu_selector.h"
#include "frame/ecu_selector_model.h"
#include "frame/ecu_selector_view.h"

#include <QTimer>

#include <optional>
#include <set>

class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QStackedWidget;
class QToolButton;

namespace kelmar {

struct ecuSelector::Parts {
  explicit Parts(ecuSelector& selector);

  // Controls and their texts.
  void makeControls();
  void showTexts();
  void showPlace(); ///< the tree, or what to do when there is nothing to show

  // Site and tree.
  void readSite();
  void readTree();
  void reload();
  void chooseDataSet(int index);
  const DataSet* dataSet() const;

  // Filter and selection.
  void filter();
  bool filterKey(int key); ///< true: the key was for us
  void select(const QModelIndex& index);
  void restoreSelection();
  void forgetSelection();
  const EcuHead& head();
  void announceSelection();
  void readHeadsInSight();

  int find(const struct Identification& wanted, std::string& address);

  ecuSelector& self;
  EcuTreeModel model;

  QLabel* lbDataSet = nullptr;
  QComboBox* cbDataSet = nullptr;
  QLabel* lbFilter = nullptr;
  QLineEdit* txFilter = nullptr;
  QAction* acClearFilter = nullptr;
  QToolButton* btReload = nullptr;
  QStackedWidget* places = nullptr;
  EcuTreeView* tvEcus = nullptr;
  QLabel* lbEmpty = nullptr;
  QLabel* lbNotShown = nullptr;
  QProgressBar* pbSearch = nullptr;

  std::string lang, server, basePath, parametersFile, siteKey;
  bool initialised = false;
  std::optional<SiteParameters> site;
  std::string siteTrouble; ///< why there is no site
  int dataSetIndex = -1;   ///< into the site's data sets; -1: none

  std::string selected; ///< address of a file or folder; empty: nothing is selected
  bool selectedIsFile = false;
  std::optional<EcuHead> selectedHead; ///< once it was read
  std::optional<std::int32_t> announcedFunction;
  std::set<std::string> openFolders; ///< as they stood before the filter opened all
  bool restoring = false;            ///< the selection moves, but not by the person
  bool searching = false;
  QTimer announceTimer, headTimer;
};

} // namespace kelmar
