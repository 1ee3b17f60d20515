// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/list_page.h"
#include "database/omnikor_lib_xml.h"
#include "platform/machine.h"

#include <memory>
#include <string>

namespace kelmar {

/// The page of the requests of an ECU: the list of all of them, the fields of one, and the data
/// that lie in its frames.
class UceRequests : public ListPage {
  Q_OBJECT
  Q_PROPERTY(QString EditRequestName READ EditRequestName WRITE setEditRequestName)
  Q_PROPERTY(QString EditDataName READ EditDataName WRITE setEditDataName)

 public:
  /// `settings` keeps the folder of test scenarios; without them none are generated.
  explicit UceRequests(platform::Person& person, platform::Settings* settings = nullptr,
                       QWidget* parent = nullptr);
  ~UceRequests() override;

  void InitControl() override;
  void setLang(const std::string& lang) override;
  void displayDatas(OmnikorLibXml& database, const std::string& file) override;
  bool TestAndConfirmChange() override;
  bool TestAndConfirmChangeDataPos();
  void SizeControls();

  /// The request in the fields, and the data among its positions. Writing chooses one by its name,
  /// at the next entry of the page when the page is not in sight.
  QString EditRequestName() const;
  void setEditRequestName(const QString& name);
  QString EditDataName() const;
  void setEditDataName(const QString& name);

 protected:
  std::vector<RowTag> items() const override;
  std::string nameOf(RowTag item) const override;
  RowTag itemNamed(const std::string& name) const override;
  std::string countText(int rows) const override;
  void showItem(RowTag item) override;
  bool hasPendingEdits() const override;
  void confirmedByClick(bool applied) override;
  void stateMoved() override;
  void changeEvent(QEvent* event) override;

 private:
  struct Parts;
  friend struct Parts;
  std::unique_ptr<Parts> parts_;
};

} // namespace kelmar
