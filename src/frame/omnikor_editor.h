// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/rules/modification_state.h"
#include "frame/uce_selector.h"
#include "language/multi_lang.h"

#include <QWidget>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

class QTabBar;

namespace kelmar {

class Page;
struct IdentificationRequest;

/// Server root of the intranet when the site names none; the path "/Omnikor" is added to it.
inline constexpr char defaultIntranetServer[] = "http://www.omnikor.example";

/// The tabbed editor: holds all pages, decides which one is visible, hands the open database to the
/// page that is entered, routes what pages say to one another, and keeps the unsaved state.
class omnikorEditor : public QWidget, private frame::FrameSurface {
  Q_OBJECT

 public:
  /// What the pages need of the machine; all must outlive it.
  struct Machine {
    platform::Person& person;
    platform::Settings& settings;
    platform::SiteSettings* site = nullptr;
    platform::Fetch* fetch = nullptr;
    const platform::Clock* clock = nullptr;
  };

  /// Makes a page below a parent.
  using PageMaker = std::function<Page*(QWidget* parent)>;
  /// By the key of the tab, such as "datas". The first page is not among them. A tab whose page is
  /// not here is not shown.
  using PageMakers = std::map<std::string, PageMaker>;

  /// Raises std::invalid_argument for a key that is no tab with a page.
  explicit omnikorEditor(Machine machine, const PageMakers& pages = {}, QWidget* parent = nullptr);
  ~omnikorEditor() override;

  // Properties. They go on to the first page at once.

  const std::string& BaseUrl() const;
  void setBaseUrl(const std::string& address);
  const std::string& xmlStyleSheet() const;
  void setXmlStyleSheet(const std::string& name);
  const std::string& XmlSchemaTarget() const;
  void setXmlSchemaTarget(const std::string& uri);
  const std::string& XmlSchemaScreen() const;
  void setXmlSchemaScreen(const std::string& uri);
  const std::string& SiteKey() const;
  void setSiteKey(const std::string& key);
  const std::string& RemoteDataServer() const;
  void setRemoteDataServer(const std::string& server);
  const std::string& lang() const { return lang_; }
  /// Trimmed; all pages read their texts again.
  void setLang(const std::string& code);
  /// Always empty; kept for hosts that ask.
  std::string WorkingDir() const { return {}; }
  void setWorkingDir(const std::string&) {}

  // Operations for the main window.

  /// Once: the language file, then every page. Raises Failure 1 when the language file cannot be
  /// read, and what a page raises.
  void InitParameters(const std::string& basePath, const std::string& parametersFileName);
  static std::string GetVersion();

  // State.

  bool databaseLoaded() const { return databaseLoaded_; }
  bool saveNeeded() const { return state_.saveNeeded(); }
  std::int32_t pageChangeCount() const { return state_.pageChangeCount(); }
  int currentPage() const { return currentPage_; }
  UceSelector& selector() { return *selector_; }
  /// None when the page is not built.
  Page* page(std::string_view tab) const;

 signals:
  void help(const std::string& module, const std::string& function);
  void checkdatabase(const std::string& uceXml);
  void DatabaseChanged(const std::string& ecuName);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  // FrameSurface
  void setTabCaption(const frame::PageRow& row, const std::string& caption) override;
  std::string translated(std::string_view defaultText, std::string_view key) const override;
  void setSelectorSaveNeed(bool value) override;
  bool saveFile() override;
  void saveBackupFile() override;
  std::optional<std::string> targetName() const override;
  bool testAndConfirmChange(const frame::PageRow& row) override;
  platform::Person& person() override { return machine_.person; }

  void addTab(const frame::PageRow& row);
  void listenToSelector();
  void listenTo(const frame::PageRow& row, Page& page);
  /// Shows the values in the panel of the search, or searches, as the parameter page asks.
  void identify(IdentificationRequest& request);
  void goTo(std::string_view source, std::string_view event,
            const std::vector<std::string>& arguments);
  void selectTab(std::string_view key);
  void tabClicked();
  /// To a tab beside the current one.
  void turnPage(int step);
  void EnterPage(const frame::PageRow& row);
  void ShowPage(int index);
  void selected(bool loaded);
  void translateControls();

  struct Shown {
    const frame::PageRow* row;
    Page* page;
  };

  Machine machine_;
  std::unique_ptr<CMultiLangEx> texts_; // the global language service
  std::string lang_, basePath_;
  frame::ModificationState state_;
  QTabBar* TabStripPrincipal = nullptr;
  UceSelector* selector_ = nullptr;
  std::vector<Shown> pages_; // in the order of the tabs
  std::shared_ptr<OmnikorLibXml> database_;
  bool databaseLoaded_ = false;
  int currentPage_ = 0;
};

} // namespace kelmar
