// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/edit_state.h"
#include "common/ecu_saving.h"
#include "frame/rules/addressing_file.h"
#include "frame/rules/projects.h"
#include "frame/rules/selector_edits.h"
#include "frame/rules/selector_state.h"
#include "frame/uce_selector.h"

#include <functional>

class QComboBox;
class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QSplitter;
class QToolBar;
class QToolButton;

namespace kelmar {

class CMultiLangEx;
class CommandTable;
class MenuLabel;
class ShortenedLabel;
class UctlNewEcuAddr;

/// Controls and state of the first page. The sources uce_selector_*.cpp share it: layout, commands,
/// files, saving, addressing.
struct UceSelector::Parts {
  Parts(UceSelector& owner, const Machine& given)
      : page(owner), machine(given), edits([&owner] { emit owner.OnChange(); }) {}

  UceSelector& page;
  Machine machine;

  // State.
  std::shared_ptr<OmnikorLibXml> database;
  std::string fileName, url, lang = "en";
  std::string basePath, parametersFile, allProjects;
  std::string dataSetLabel; ///< of the data set that was told last
  bool backupTaken = false; ///< or tried
  bool initialised = false; ///< InitParameters has run
  SelectorState state;
  EditState edits;       ///< of the two names
  SelectorEdits changes; ///< what a cancel takes back
  ProjectList projects;
  bool projectsUpdating = false;

  // Controls, each with its member's name as object name.
  QToolBar* TBtoolbar = nullptr;
  CommandTable* commands = nullptr;
  QLabel* lbAppVersion = nullptr;
  QSplitter* splitter = nullptr;
  ecuSelector* ecuSelector1 = nullptr;
  QPlainTextEdit* TxEcuDesc = nullptr;
  QGroupBox* framSummary = nullptr;
  QLineEdit *TxEcuName = nullptr, *txGenericName = nullptr;
  QLineEdit *TextAdresse = nullptr, *TextLogicalAdresse = nullptr;
  QLineEdit *TextFunction = nullptr, *TextProtocole = nullptr;
  MenuLabel* LabelFunction = nullptr;
  QWidget* changeFunctionRow = nullptr;
  QComboBox* cbFunctionsName = nullptr;
  QPushButton *cmdChangeFunctionOK = nullptr, *cmdChangeFunctionCancel = nullptr;
  ShortenedLabel* lbFileName = nullptr;
  QToolButton* cmdLinkNewPDM = nullptr;
  QToolButton* cmdLoadReport = nullptr;
  QWidget* lowerRow = nullptr; ///< of the next two boxes
  QGroupBox* framProjects = nullptr;
  QListWidget* lstProjects = nullptr;
  QGroupBox* FrDetect = nullptr;
  QComboBox* comboProto = nullptr;
  QLineEdit *txdFunc = nullptr, *txdDiag = nullptr, *txdSup = nullptr;
  QLineEdit *txdSoft = nullptr, *txdVers = nullptr;
  QPushButton* cbDetect = nullptr;
  QLabel* lbResult = nullptr;
  QLineEdit* txdHref = nullptr;
  UctlNewEcuAddr* UctlNewEcuAddr1 = nullptr;
  QLabel* tbUpdateCheckBase = nullptr;
  QProgressBar* pbUpdateCheckBase = nullptr;
  QMenu* ppChangeFct = nullptr;

  const CMultiLangEx& texts() const;
  TargetItem* target() const { return database ? database->ActiveTarget.get() : nullptr; }
  /// Runs something that a person has asked for; a failure is told by the generic box.
  void guarded(const std::function<void()>& action);

  // uce_selector_layout.cpp
  void makeControls();
  void layOut();
  void translate();
  void fillProtocols();

  // uce_selector_commands.cpp
  void makeCommands();
  void connectControls();
  /// Shows and enables what the state allows.
  void applyState();

  // uce_selector_files.cpp
  /// Lets unsaved work be saved before another ECU takes the place of the open one. False when that
  /// was wanted and did not succeed.
  bool mayReplaceEcu();
  void openAsked();
  void openRecent(const std::string& file);
  void openDropped(const std::string& file);
  void openFromTree(const std::string& address);
  /// False when the person did not want the file. Raises the failure of the load.
  bool load(const std::string& file);
  void tellOpenError(const std::string& file, const Failure& failure);
  void opened(const std::string& address);
  void useSite();
  void showSelection();

  // uce_selector_summary.cpp
  void showSummary();
  void clearSummary();
  void takeOverNames();
  void readProjects();
  void showProjects();
  void fillProjectMarks();
  void projectMarked(int row);

  // uce_selector_saving.cpp
  void saveEcu(bool saveAs);
  void cancelEdits();
  void newEcu();
  void copyPermanentLink();
  void showReport();
  void showHiddenFunction();

  // uce_selector_addressing.cpp
  void newEcuCancelled();
  void newEcuCreated(const NewEcu& ecu);
  void askFunction();
  void changeFunction();
  void cancelChangeFunction();
  void detect();
};

} // namespace kelmar
