// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/page.h"
#include "support/recorder.h"

#include <QLineEdit>

#include <functional>

namespace kelmar::support {

/// A small page that keeps the contract, and notes in a list what it is asked to do:
/// "UceDatas1.displayDatas(Engine)". It stands in for any page of the frame.
class TestPage : public Page {
  Q_OBJECT
  Q_PROPERTY(QString EditDataName MEMBER EditDataName WRITE setEditDataName)
  Q_PROPERTY(QString EditRequestName MEMBER EditRequestName)
  Q_PROPERTY(QString EditDeviceName MEMBER EditDeviceName)
  Q_PROPERTY(QString EditDeviceDataName MEMBER EditDeviceDataName)
  Q_PROPERTY(QString EditCategoryName MEMBER EditCategoryName)
  Q_PROPERTY(QString EditScreenName MEMBER EditScreenName)
  Q_PROPERTY(QString DIDToBeSelected MEMBER DIDToBeSelected)
  Q_PROPERTY(QString DataPosToBeSelected MEMBER DataPosToBeSelected)
  Q_PROPERTY(QString databaseDescription MEMBER databaseDescription)

 public:
  /// `recorder` must outlive it.
  TestPage(Recorder& recorder, QWidget* parent);

  /// What TestAndConfirmChange answers.
  bool applies = false;
  /// Raised by InitControl when it is not empty.
  std::string failsWith;
  /// Runs within InitControl.
  std::function<void()> onInit;
  QString EditDataName, EditRequestName, EditDeviceName, EditDeviceDataName, EditCategoryName,
      EditScreenName, DIDToBeSelected, DataPosToBeSelected, databaseDescription;
  void setEditDataName(const QString& name);

  void InitControl() override;
  void setLang(const std::string& lang) override;
  void displayDatas(OmnikorLibXml& database, const std::string& file) override;
  bool TestAndConfirmChange() override;
  Q_INVOKABLE void CopyDataToScreen(const QString& a, const QString& b, const QString& c);

 private:
  void note(const std::string& what);

  Recorder& recorder_;
  QLineEdit* field_; // "TestField", so that the page can have the focus
};

} // namespace kelmar::support
