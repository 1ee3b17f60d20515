// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/scripted_person.h"
#include "support/signal_recorder.h"

#include <QWidget>
#include <gtest/gtest.h>

using namespace kelmar::support;

namespace {

class Announcing : public QWidget {
  Q_OBJECT

 signals:
  void OnSave(bool toFile);
  void OnChange();
  void OnRequestSelect(const std::string& request, const QString& data, int row);
};

TEST(SignalRecorder, NotesAllSignalsOfASenderInOneListWithTheBoxes) {
  Announcing sender;
  sender.setObjectName("UceDatas1");
  Recorder recorder;
  const SignalRecorder listening(sender, recorder);
  ScriptedPerson person;
  person.recordInto(recorder);
  person.expect("", "Sure", "t", kelmar::platform::Buttons::Ok, kelmar::platform::Icon::None,
                kelmar::platform::Answer::Ok);
  emit sender.OnChange();
  person.message({"", "Sure", "t"});
  emit sender.OnSave(true);
  emit sender.OnRequestSelect("Read é", "Speed", 3);
  sender.setWindowTitle("of the widget, not of the page");
  EXPECT_EQ(recorder.take(), (std::vector<std::string>{
                                 "UceDatas1.OnChange()", "box Sure: t", "UceDatas1.OnSave(true)",
                                 "UceDatas1.OnRequestSelect(Read é, Speed, 3)"}));
}

} // namespace

#include "test_signal_recorder.moc"
