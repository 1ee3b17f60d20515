// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/page.h"
#include "support/signal_recorder.h"

#include <gtest/gtest.h>

using namespace kelmar;

namespace {

class SmallPage : public Page {
  Q_OBJECT
  Q_PROPERTY(QString EditDataName MEMBER EditDataName)

 public:
  QString EditDataName;
  void InitControl() override {}
  void setLang(const std::string&) override {}
  void displayDatas(OmnikorLibXml&, const std::string&) override {}
  bool TestAndConfirmChange() override { return false; }
};

TEST(PageContract, EventsBearTheirNames) {
  SmallPage page;
  page.setObjectName("UceDatas1");
  support::Recorder recorder;
  const support::SignalRecorder listening(page, recorder);
  emit page.OnChange();
  emit page.OnSave(false);
  emit page.OnCancel();
  emit page.OnDataSelect("a");
  emit page.OnRequestSelect("r", "a");
  emit page.OnDeviceSelect("d", "a");
  emit page.OnDisplaySelect("c", "s", "a");
  emit page.OnDIDSelect("i", "a");
  emit page.OnCopyDataToScreen("x", "y", "z");
  emit page.help("data", "");
  EXPECT_EQ(recorder.take(),
            (std::vector<std::string>{
                "UceDatas1.OnChange()", "UceDatas1.OnSave(false)", "UceDatas1.OnCancel()",
                "UceDatas1.OnDataSelect(a)", "UceDatas1.OnRequestSelect(r, a)",
                "UceDatas1.OnDeviceSelect(d, a)", "UceDatas1.OnDisplaySelect(c, s, a)",
                "UceDatas1.OnDIDSelect(i, a)", "UceDatas1.OnCopyDataToScreen(x, y, z)",
                "UceDatas1.help(data, )"}));
}

TEST(PageContract, PropertiesAreWrittenByName) {
  SmallPage page;
  EXPECT_TRUE(page.writeProperty("EditDataName", "Vitesse é"));
  EXPECT_EQ(page.EditDataName, "Vitesse é");
  EXPECT_FALSE(page.writeProperty("EditRequestName", "x"));
  EXPECT_FALSE(page.property("EditRequestName").isValid());
}

} // namespace

#include "test_page.moc"
