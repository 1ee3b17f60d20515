// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/desktop_programs.h"
#include "frame/omnikor_editor.h"
#include "frame/rules/command_string.h"
#include "platform/site_settings.h"

#include <QMainWindow>

#include <string>
#include <utility>
#include <vector>

class QMenu;

namespace kelmar {

/// The main window: a menu bar around the editor. It reads the site's settings, hands the editor
/// its own, places itself, and turns the editor's events into captions and pages of the browser.
class KelmarForm : public QMainWindow {
  Q_OBJECT

 public:
  /// What the window needs of the machine; all must outlive it.
  struct Machine {
    platform::Person& person;
    platform::Settings& settings;
    platform::Processes& processes;
    platform::SiteSettings& site;
    platform::Fetch* fetch = nullptr;
    const platform::Clock* clock = nullptr;
  };
  /// How a further copy of this program is started.
  struct Program {
    std::string path;
    std::vector<std::string> arguments; ///< before the position of its window
  };

  KelmarForm(Machine machine, Program program, const omnikorEditor::PageMakers& pages = {});

  /// All steps of the start, up to the window on the screen. `commandString` may hold "left,top" in
  /// twips. Raises Failure 1 when a language file cannot be read; the window is then not shown.
  void start(const std::string& commandString);

  /// Opens an ECU file; what goes wrong is told by a box.
  void openFile(const std::string& file);

  omnikorEditor& editor() { return *ctlOmnikor; }

  /// Named values of an event, in order.
  using Parameters = std::vector<std::pair<std::string, std::string>>;
  /// An event of the editor. The name counts without regard to case; an unknown one is shown.
  void ObjectEvent(const std::string& name, const Parameters& parameters);

 private:
  void makeMenus();
  void SetMenusEnabled(bool enabled);
  void startNewApp();
  void showAbout();
  void showCheckReport(const std::string& uceXml);
  void showHelp(const std::string& helpModule, const std::string& helpFunction);
  void place(frame::RequestedPosition wanted);
  /// The data root in the form that addresses are made of.
  std::string rootForAddresses() const;
  bool helpPageIsMissing(const std::string& language, const std::string& helpModule) const;

  Machine machine_;
  Program program_;
  CMultiLangEx texts_; // of this window alone; not told a new language of the editor
  desktop::DesktopPrograms programs_;
  std::string browserCommand_, dataRoot_, currentLanguage_;
  omnikorEditor* ctlOmnikor = nullptr;
  QMenu *mnuFile = nullptr, *mnuTools = nullptr, *mnuHelp = nullptr;
};

} // namespace kelmar
