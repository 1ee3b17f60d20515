// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/recorder.h"

#include <QMetaMethod>
#include <QObject>

#include <vector>

namespace kelmar::support {

/// Notes every signal that the sender's own classes declare (not those of QWidget and below), as
/// "UceDatas1.OnSave(true)": the sender's object name, the signal, its arguments. Sender and
/// recorder must outlive it.
class SignalRecorder : public QObject {
 public:
  SignalRecorder(QObject& sender, Recorder& recorder);
  int qt_metacall(QMetaObject::Call call, int id, void** arguments) override;

 private:
  QObject& sender_;
  Recorder& recorder_;
  std::vector<QMetaMethod> signals_;
};

} // namespace kelmar::support
