// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The language files hold the texts of the controls as the window shows them, text by text. What
// the code says in messages is compared by tools/language_keys.py.
#include "app/pages.h"
#include "desktop/control_adapter.h"
#include "desktop/qt_text.h"
#include "desktop/translate_control.h"
#include "frame/kelmar_form.h"
#include "support/machine_doubles.h"
#include "support/scripted_person.h"
#include "support/small_site.h"
#include "support/temp_folder.h"
#include "support/user.h"
#include "xml/document.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

namespace kelmar {

namespace {

using desktop::u8;
using language::ControlProperty;
using language::ControlText;

constexpr char windowFile[] = "KelmarX.xml";
constexpr char pagesFile[] = "OmnikorKelmarControl.xml";

/// Which file and element hold the texts of the controls of a page, by the page's object name.
struct PageTexts {
  const char* page;
  const char* file;
  const char* key; ///< empty: the page asks for each text by a key of its own
};

constexpr PageTexts pageTexts[] = {
    {"KelmarForm", windowFile, "MAIN/CONTROLS"},
    {"ctlOmnikor", pagesFile, "MAIN/CONTROLS"},
    {"UceSelector1", pagesFile, "SELECTOR/CONTROLS"},
    {"UctlNewEcuAddr1", pagesFile, "NEWECU/CONTROLS"},
    {"ecuSelector1", pagesFile, ""},
    {"UceEditParam1", pagesFile, "PARAMS/CONTROLS"},
    {"UceAutoIdents1", pagesFile, "AUTOIDENT/CONTROLS"},
    {"UceDatas1", pagesFile, "DATAS/CONTROLS"},
    {"UceDataList1", pagesFile, "DATALIST/CONTROLS"},
    {"UceRequests1", pagesFile, "REQUESTS/CONTROLS"},
};

/// Labels that show what is at hand, not a text of their own.
const std::set<std::string> shownValues = {"SELECTOR/CONTROLS/lbAppVersion/caption"};

/// File, key and text, in that order.
using Texts = std::map<std::pair<std::string, std::string>, std::set<std::string>>;

QTabBar* tabsOf(QObject& control) {
  if (auto* pages = qobject_cast<QTabWidget*>(&control)) return pages->tabBar();
  return qobject_cast<QTabBar*>(&control);
}

const QMenu* menuOf(const QToolBar& bar, QAction& action) {
  if (const QMenu* menu = action.menu<QMenu*>()) return menu;
  const auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(&action));
  return button ? button->menu() : nullptr;
}

QString captionOf(const QObject& control) {
  if (const auto* action = qobject_cast<const QAction*>(&control)) return action->text();
  if (const auto* menu = qobject_cast<const QMenu*>(&control)) return menu->title();
  if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) return button->text();
  if (const auto* box = qobject_cast<const QGroupBox*>(&control)) return box->title();
  if (const auto* label = qobject_cast<const QLabel*>(&control)) return label->text();
  return {};
}

/// What a control shows at the place of a text.
QString shownText(QObject& control, const ControlText& text) {
  if (text.where.part < 0) {
    if (text.property == ControlProperty::Caption) return captionOf(control);
    const auto* widget = qobject_cast<const QWidget*>(&control);
    return widget && text.property == ControlProperty::ToolTip ? widget->toolTip() : QString();
  }
  if (const QTabBar* tabs = tabsOf(control))
    return text.property == ControlProperty::ToolTip ? tabs->tabToolTip(text.where.part)
                                                     : tabs->tabText(text.where.part);
  if (const auto* bar = qobject_cast<const QToolBar*>(&control)) {
    QAction* action = bar->actions().value(text.where.part);
    if (text.where.menu < 0) return action->toolTip();
    return menuOf(*bar, *action)->actions().value(text.where.menu)->text();
  }
  if (const auto* view = qobject_cast<const QAbstractItemView*>(&control))
    return view->model()->headerData(text.where.part, Qt::Horizontal).toString();
  return {};
}

/// Buttons of a tool bar and the entries below them have their texts from the tool bar.
void collectToolBarActions(const QObject& page, std::set<const QObject*>& actions) {
  for (const QToolBar* bar : page.findChildren<QToolBar*>())
    for (QAction* action : bar->actions()) {
      actions.insert(action);
      const auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(action));
      if (button && button->defaultAction() == action) actions.insert(button);
      if (const QMenu* menu = menuOf(*bar, *action)) {
        actions.insert(menu);
        for (const QAction* entry : menu->actions())
          actions.insert(entry);
      }
    }
}

class LanguageFiles : public testing::Test {
 protected:
  void make(const std::string& root, const std::string& languageCode) {
    platform::SiteStart start;
    start.site = root;
    start.language = languageCode;
    siteSettings = std::make_unique<platform::SiteSettings>(start);
    const KelmarForm::Machine machine{person, settings, processes, *siteSettings, nullptr, &clock};
    form = std::make_unique<KelmarForm>(machine, KelmarForm::Program{"/opt/kelmar", {}},
                                        pageMakers(machine));
    form->start({});
  }

  /// What all pages show, by the place where the file has it.
  Texts shown() {
    Texts found;
    collectToolBarActions(*form, toolBarActions);
    collectPage(*form, found);
    return found;
  }

  void collectPage(QObject& page, Texts& found) {
    const auto row =
        std::find_if(std::begin(pageTexts), std::end(pageTexts), [&](const PageTexts& texts) {
          return page.objectName() == QLatin1String(texts.page);
        });
    ASSERT_NE(row, std::end(pageTexts))
        << "where are the texts of " << u8(page.objectName()) << "?";
    collectBelow(page, *row, found);
  }

  void collectBelow(QObject& parent, const PageTexts& page, Texts& found) {
    for (QObject* child : parent.children()) {
      if (!child->isWidgetType() && !qobject_cast<QAction*>(child)) continue;
      const QString name = child->objectName();
      const bool isControl = !name.isEmpty() && !name.startsWith(QLatin1String("qt_")) &&
                             !desktop::typeNameOf(*child).empty() &&
                             !toolBarActions.contains(child);
      if (isControl && *page.key) {
        for (const ControlText& text : language::controlTexts(desktop::ControlAdapter(*child))) {
          const std::string key = std::string(page.key) + "/" + text.path;
          const QString shownNow = shownText(*child, text);
          if (!shownNow.isEmpty() && !shownValues.contains(key))
            found[{page.file, key}].insert(u8(shownNow));
        }
      }
      if (child->property(desktop::ownTextsProperty).toBool())
        collectPage(*child, found);
      else
        collectBelow(*child, page, found);
    }
  }

  /// The leaves of the files below the keys of the controls.
  static std::map<std::pair<std::string, std::string>, std::string>
  written(const std::string& languageCode) {
    std::map<std::pair<std::string, std::string>, std::string> found;
    for (const PageTexts& page : pageTexts) {
      xml::Document file;
      EXPECT_TRUE(file.load(std::string(KELMAR_SITE) + "/lang/" + page.file))
          << file.parseError().reason;
      if (!*page.key) continue;
      for (const xml::Node leaf : file.selectNodes("/software/" + std::string(page.key) +
                                                   "//*[@xml:lang='" + languageCode + "']")) {
        std::string key;
        for (xml::Node step = leaf; std::string_view(step.name()) != "software";
             step = step.parent())
          key = step.name() + (key.empty() ? "" : "/" + key);
        found[{page.file, key}] = CMultiLangEx::ExpandCodes(xml::textOf(leaf));
      }
    }
    return found;
  }

  support::SmallSite site;
  support::ScriptedPerson person;
  support::MemorySettings settings;
  support::NotedProcesses processes;
  support::FixedClock clock;
  std::unique_ptr<platform::SiteSettings> siteSettings;
  std::unique_ptr<KelmarForm> form;
  std::set<const QObject*> toolBarActions;
};

/// Keys that the code names itself, too, such as those of tabs that are not there yet or of menus
/// that are made when they open. tools/language_keys.py looks after them.
class NamedInCode {
 public:
  NamedInCode() {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(KELMAR_SOURCE "/src"))
      if (entry.path().extension() == ".cpp" || entry.path().extension() == ".h")
        code_ += support::bytesOf(entry.path().string());
  }
  bool contains(const std::string& key) const {
    // Of the entries of a menu array, the code names the array.
    if (const std::size_t item = key.rfind("/item"); item != std::string::npos)
      return contains(
          key.substr(key.rfind('/', item - 1) + 1, item - key.rfind('/', item - 1) - 1));
    return code_.find('"' + key + '"') != std::string::npos;
  }

 private:
  std::string code_;
};

} // namespace

TEST_F(LanguageFiles, English_IsWhatTheControlsShowWithoutAnyFile) {
  for (const char* name : {windowFile, pagesFile})
    site.folder().write(std::string("lang/") + name, "<software/>");
  make(site.root(), "en");
  const Texts inWindow = shown();
  ASSERT_FALSE(HasFatalFailure());
  auto inFile = written("en");

  std::ofstream list(std::string(KELMAR_BINARY_DIR) + "/control_texts.tsv");
  for (const auto& [place, texts] : inWindow) {
    const auto& [file, key] = place;
    const auto english = inFile.find(place);
    // What two controls of one name show differently can have no text in common.
    if (texts.size() > 1) {
      EXPECT_TRUE(english == inFile.end()) << file << ": " << key << " stands for several texts";
      continue;
    }
    list << file << '\t' << key << '\t';
    for (const char letter : *texts.begin())
      letter == '\n' ? list << "\\n" : letter == '\\' ? list << "\\\\" : list << letter;
    list << '\n';
    if (english == inFile.end()) {
      ADD_FAILURE() << file << ": " << key << " is missing: \"" << *texts.begin() << '"';
      continue;
    }
    EXPECT_EQ(english->second, *texts.begin()) << file << ": " << key;
  }
  const NamedInCode named;
  for (const auto& [place, text] : inFile)
    EXPECT_TRUE(inWindow.contains(place) || named.contains(place.second))
        << place.first << ": no control shows " << place.second << ": \"" << text << '"';
}

TEST_F(LanguageFiles, French_IsWhatTheControlsShowInFrench) {
  make(KELMAR_SITE, "fr");
  const Texts inWindow = shown();
  ASSERT_FALSE(HasFatalFailure());
  EXPECT_GT(inWindow.size(), 30u);
  const auto inFile = written("fr");
  for (const auto& [place, texts] : inWindow) {
    const auto french = inFile.find(place);
    if (texts.size() > 1) continue;
    ASSERT_TRUE(french != inFile.end()) << place.second;
    EXPECT_EQ(french->second, *texts.begin()) << place.second;
  }
}

} // namespace kelmar
