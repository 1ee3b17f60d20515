// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "language/multi_lang.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace kelmar::language {
namespace {

/// Notes what it is given.
class NotedControl : public Control {
 public:
  NotedControl(std::string type, std::string name, std::optional<int> index = std::nullopt,
               std::vector<ControlPart> parts = {})
      : type_(std::move(type)), name_(std::move(name)), index_(index), parts_(std::move(parts)) {}

  std::string typeName() const override { return type_; }
  std::string name() const override { return name_; }
  std::optional<int> index() const override { return index_; }
  std::vector<ControlPart> parts() const override { return parts_; }
  void apply(ControlProperty property, const std::string& text, PartPosition where) override {
    if (raises) throw platformFailure(TypeMismatch);
    static const char* const names[] = {"caption", "toolTip", "text", "FontName", "FontSize"};
    std::string line = names[static_cast<int>(property)];
    if (where.part >= 0) line += "[" + std::to_string(where.part) + "]";
    if (where.menu >= 0) line += "[" + std::to_string(where.menu) + "]";
    given.push_back(line + "=" + text);
  }
  void applyFontSize(float points) override { given.push_back("size=" + std::to_string(points)); }

  std::vector<std::string> given;
  bool raises = false;

 private:
  std::string type_, name_;
  std::optional<int> index_;
  std::vector<ControlPart> parts_;
};

std::vector<std::string> pathsOf(const Control& control) {
  std::vector<std::string> paths;
  for (const ControlText& text : controlTexts(control))
    paths.push_back(text.path);
  return paths;
}

using Paths = std::vector<std::string>;

TEST(ControlTexts, EachType_HasItsPaths) {
  const struct {
    const char* type;
    Paths paths;
  } rows[] = {
      {"Menu", {"N/caption"}},
      {"ComboBox", {"N/toolTip"}},
      {"Image", {"N/toolTip"}},
      {"PictureBox", {"N/toolTip"}},
      {"TextBox", {"N/toolTip"}},
      {"Label", {"N/caption", "N/toolTip"}},
      {"Frame", {"N/caption", "N/toolTip"}},
      {"CommandButton", {"N/caption", "N/toolTip", "N/FontName", "N/FontSize"}},
      {"CheckBox", {"N/caption", "N/toolTip"}},
      {"OptionButton", {"N/caption", "N/toolTip"}},
      {"TabStrip", {}},
      {"ListView", {}},
      {"Toolbar", {}},
      {"UctlSomething", {}},
      {"", {}},
  };
  for (const auto& row : rows)
    EXPECT_EQ(pathsOf(NotedControl(row.type, "N")), row.paths) << row.type;
}

TEST(ControlTexts, ControlArrays_HaveTheirIndexInThePath) {
  EXPECT_EQ(pathsOf(NotedControl("Menu", "N", 3)), Paths{"N/item3/caption"});
  EXPECT_EQ(pathsOf(NotedControl("OptionButton", "N", 2)), (Paths{"N2/caption", "N2/toolTip"}));
  EXPECT_EQ(pathsOf(NotedControl("OptionButton", "N", 0)), (Paths{"N0/caption", "N0/toolTip"}));
  EXPECT_EQ(pathsOf(NotedControl("OptionButton", "N", -1)), (Paths{"N/caption", "N/toolTip"}));
  EXPECT_EQ(pathsOf(NotedControl("Label", "N", 2)), (Paths{"N/caption", "N/toolTip"}));
}

TEST(ControlTexts, Parts_NeedAKey) {
  const std::vector<ControlPart> parts = {{"a", {"x", "", "y"}}, {"", {"z"}}, {"b", {}}};
  EXPECT_EQ(pathsOf(NotedControl("TabStrip", "N", {}, parts)),
            (Paths{"N/a/caption", "N/a/toolTip", "N/b/caption", "N/b/toolTip"}));
  EXPECT_EQ(pathsOf(NotedControl("ListView", "N", {}, parts)), (Paths{"N/a/text", "N/b/text"}));
  EXPECT_EQ(pathsOf(NotedControl("Toolbar", "N", {}, parts)),
            (Paths{"N/a/toolTip", "N/a/x/text", "N/a/y/text", "N/b/toolTip"}));
}

constexpr char languageFile[] = R"(<software><P><CONTROLS>
 <lb><caption xml:lang="en">Name</caption><caption xml:lang="fr">Nom</caption>
   <toolTip>{cr}tip</toolTip></lb>
 <bt><caption>Go</caption><FontName>Serif</FontName><FontSize>9.5</FontSize></bt>
 <bad><caption>Go</caption><FontSize>big</FontSize></bad>
 <tb><open><toolTip>Open</toolTip><recent><text>Recent</text></recent></open></tb>
 <lv><name><text>Name</text></name></lv>
</CONTROLS></P></software>)";

class TranslateControls : public testing::Test {
 protected:
  TranslateControls() {
    EXPECT_TRUE(texts.loadXmlLanguageFile(folder.write("a.xml", languageFile)));
    texts.language = "fr";
  }
  support::TempFolder folder;
  CMultiLangEx texts;
};

TEST_F(TranslateControls, Texts_AreAppliedInTheLanguageWithCodesExpanded) {
  NotedControl label("Label", "lb"), button("CommandButton", "bt"), none("Label", "other");
  NotedControl bar("Toolbar", "tb", {}, {{"", {}}, {"open", {"other", "recent"}}});
  NotedControl list("ListView", "lv", {}, {{"name", {}}});
  texts.TranslateControl({&label, &button, &none, &bar, &list}, "P/CONTROLS");
  EXPECT_EQ(label.given, (Paths{"caption=Nom", "toolTip=\rtip"}));
  EXPECT_EQ(button.given, (Paths{"caption=Go", "FontName=Serif", "size=9.500000"}));
  EXPECT_EQ(none.given, Paths{});
  EXPECT_EQ(bar.given, (Paths{"toolTip[1]=Open", "text[1][1]=Recent"}));
  EXPECT_EQ(list.given, Paths{"text[0]=Name"});
}

TEST_F(TranslateControls, AFallbackLanguage_IsTheFirstThere) {
  texts.language = "de";
  NotedControl label("Label", "lb");
  texts.TranslateControl({&label}, "P/CONTROLS");
  EXPECT_EQ(label.given.front(), "caption=Name");
}

TEST_F(TranslateControls, ErrorsOfOneControl_LeaveTheOthers) {
  NotedControl raising("Label", "lb"), bad("CommandButton", "bad"), label("Label", "lb");
  NotedControl oddName("Label", "it's['odd");
  raising.raises = true;
  texts.TranslateControl({&raising, &bad, &oddName, &label}, "P/CONTROLS");
  EXPECT_EQ(raising.given, Paths{});
  EXPECT_EQ(bad.given, Paths{"caption=Go"});
  EXPECT_EQ(oddName.given, Paths{});
  EXPECT_EQ(label.given.size(), 2u);
}

TEST_F(TranslateControls, WithoutDocumentOrKey_NothingHappens) {
  NotedControl label("Label", "lb");
  texts.TranslateControl({&label}, "Q/CONTROLS");
  CMultiLangEx().TranslateControl({&label}, "P/CONTROLS");
  EXPECT_EQ(label.given, Paths{});
}

TEST_F(TranslateControls, Ex_UsesAnotherFileAndComesBack) {
  const std::string other = folder.write(
      "b.xml",
      "<software><P><CONTROLS><lb><caption>Other</caption></lb></CONTROLS></P></software>");
  NotedControl label("Label", "lb");
  texts.TranslateControlEx(other, {&label}, "P/CONTROLS");
  EXPECT_EQ(label.given, Paths{"caption=Other"});
  texts.TranslateControlEx(folder.file("none.xml"), {&label}, "P/CONTROLS");
  EXPECT_EQ(label.given.size(), 1u);
  EXPECT_EQ(texts.getMultilangMessage("P/CONTROLS/lb/caption"), "Nom");
}

} // namespace
} // namespace kelmar::language
