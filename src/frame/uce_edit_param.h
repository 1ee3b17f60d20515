// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/page.h"
#include "platform/person.h"

#include <cstdint>
#include <memory>
#include <string>

namespace kelmar {

/// A request for the search by identification. Whoever hears it answers before the signal is over.
struct IdentificationRequest {
  bool search = false; ///< false: the values are only shown in the panel of the search
  std::int32_t function = 0;
  std::int32_t protocol = 0; ///< number of the search
  std::int32_t diagVersion = 0;
  std::string supplier = {}, soft = {}, version = {};
  // The answer to a search.
  std::int32_t code = 0;            ///< match code
  std::string href = {}, text = {}; ///< address, empty without a match; what to tell a person
};

/// The page of the general values of the ECU: how it is reached, with a panel for the protocol that
/// is chosen, and by which values it is recognised. The database gets them by GetDataFromScreen.
class UceEditParam : public Page {
  Q_OBJECT
  Q_PROPERTY(QString databaseDescription READ databaseDescription WRITE setDatabaseDescription)

 public:
  explicit UceEditParam(platform::Person& person, QWidget* parent = nullptr);
  ~UceEditParam() override;

  void InitControl() override;
  void setLang(const std::string& lang) override;
  void displayDatas(OmnikorLibXml& database, const std::string& file) override;
  bool TestAndConfirmChange() override;

  /// Shows the open ECU; a database without one empties the page.
  void DisplayParam(OmnikorLibXml& database);
  /// Copies the page into the open ECU. What does not convert leaves what was there.
  void GetDataFromScreen();

  QString databaseDescription() const;
  void setDatabaseDescription(const QString& text);

 signals:
  void OnIdentification(kelmar::IdentificationRequest& request);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

} // namespace kelmar
