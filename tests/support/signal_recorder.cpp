// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/signal_recorder.h"

#include <QMetaMethod>
#include <QStringList>
#include <QVariant>
#include <QWidget>

#include <stdexcept>

namespace kelmar::support {

namespace {

QString shown(const QMetaMethod& method, int parameter, void* value) {
  const QMetaType metaType = method.parameterMetaType(parameter);
  if (metaType == QMetaType::fromType<std::string>())
    return QString::fromStdString(*static_cast<const std::string*>(value));
  const QVariant variant(metaType, value);
  return variant.canConvert<QString>() ? variant.toString()
                                       : QString::fromLatin1(method.parameterTypeName(parameter));
}

} // namespace

SignalRecorder::SignalRecorder(QObject& sender, Recorder& recorder)
    : sender_(sender), recorder_(recorder) {
  const QMetaObject* meta = sender.metaObject();
  const int first = sender.isWidgetType() ? QWidget::staticMetaObject.methodCount()
                                          : QObject::staticMetaObject.methodCount();
  for (int index = first; index < meta->methodCount(); ++index) {
    const QMetaMethod method = meta->method(index);
    if (method.methodType() != QMetaMethod::Signal) continue;
    // The receiving method exists only as a number above those of QObject.
    const int slot = QObject::staticMetaObject.methodCount() + static_cast<int>(signals_.size());
    if (!QMetaObject::connect(&sender, index, this, slot, Qt::DirectConnection))
      throw std::runtime_error("cannot listen to " + method.name().toStdString());
    signals_.push_back(method);
  }
}

int SignalRecorder::qt_metacall(QMetaObject::Call call, int id, void** arguments) {
  id = QObject::qt_metacall(call, id, arguments);
  if (id < 0 || call != QMetaObject::InvokeMetaMethod) return id;
  const QMetaMethod& method = signals_.at(static_cast<std::size_t>(id));
  QStringList values;
  for (int i = 0; i < method.parameterCount(); ++i)
    values << shown(method, i, arguments[i + 1]);
  recorder_.note((sender_.objectName() + QLatin1Char('.') + QString::fromLatin1(method.name()) +
                  QLatin1Char('(') + values.join(QLatin1String(", ")) + QLatin1Char(')'))
                     .toStdString());
  return -1;
}

} // namespace kelmar::support
