// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/list_page.h"
#include "database/omnikor_lib_xml.h"
#include "editors/rules/datas/data_fields.h"

#include <memory>
#include <string>

namespace kelmar {

/// The page of the data of an ECU: the list of all of them, and the fields of one.
class UceDatas : public ListPage {
  Q_OBJECT
  Q_PROPERTY(QString EditDataName READ EditDataName WRITE setEditDataName)

 public:
  /// `site` is the data root, which holds units.xml; may be empty.
  UceDatas(platform::Person& person, std::string site, QWidget* parent = nullptr);
  ~UceDatas() override;

  void InitControl() override;
  void setLang(const std::string& lang) override;
  void displayDatas(OmnikorLibXml& database, const std::string& file) override;
  bool TestAndConfirmChange() override;
  void SizeControls();

  /// The data in the fields. Writing chooses one by its name, at the next entry of the page when
  /// it is not in the list yet.
  QString EditDataName() const;
  void setEditDataName(const QString& name);

 protected:
  std::vector<RowTag> items() const override;
  std::string nameOf(RowTag item) const override;
  RowTag itemNamed(const std::string& name) const override;
  std::string countText(int rows) const override;
  void showItem(RowTag item) override;
  bool hasPendingEdits() const override;
  void stateMoved() override;
  void changeEvent(QEvent* event) override;

 private:
  struct Parts;
  friend struct Parts;
  std::unique_ptr<Parts> parts_;
};

} // namespace kelmar
