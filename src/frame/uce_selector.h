// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/omnikor_lib_xml.h"
#include "platform/machine.h"
#include "platform/person.h"

#include <QWidget>

#include <cstdint>
#include <memory>
#include <string>

namespace kelmar::platform {
class SiteSettings;
}

namespace kelmar {

class ecuSelector;

/// The first page: owns the database of the session, opens an ECU file from the disk or from the
/// shared tree, shows its summary, and does all saving.
///
/// Public operations raise Failure where they say so; what the page does on its own, at a click,
/// tells its failures by boxes.
class UceSelector : public QWidget {
  Q_OBJECT
  // Kept with the page by whoever stores its properties.
  Q_PROPERTY(qint32 TargetAddress MEMBER TargetAddress)
  Q_PROPERTY(qint32 TargetId MEMBER targetid)

 public:
  /// What the page needs of the machine; all must outlive it.
  struct Machine {
    platform::Person& person;
    platform::Settings& settings;
    platform::Fetch* fetch = nullptr;             ///< without it "http:" addresses fail
    const platform::Clock* clock = nullptr;       ///< none: the machine's clock
    const platform::SiteSettings* site = nullptr; ///< without it there are no permanent links
  };
  explicit UceSelector(Machine machine, QWidget* parent = nullptr);
  ~UceSelector() override;

  // Properties.

  const std::shared_ptr<OmnikorLibXml>& database() const;
  void setDatabase(std::shared_ptr<OmnikorLibXml> database);
  /// Local file of the ECU; empty when it came from an address or is new.
  const std::string& fileName() const;
  /// Last address given by the tree.
  const std::string& url() const;
  /// Name of the data set that the tree shows.
  std::string selectionLabel() const;
  /// The database differs from the file: the frame's state, mirrored.
  bool saveNeed = false;

  std::string SiteKey, RemoteDataServer, BaseUrl, xmlStyleSheet, XmlSchemaTarget, XmlSchemaScreen;
  const std::string& lang() const;
  /// The page reads its texts again.
  void setLang(const std::string& lang);
  std::int32_t TargetAddress = 0, targetid = 0;

  // Operations.

  /// Once: translates the controls and initialises the tree with the data root and the name of the
  /// parameter file; empty arguments leave what was there.
  void InitParameters(const std::string& basePath, const std::string& parametersFile);
  /// Shows the open ECU as it is now.
  void displayDatas();
  /// Renews the recent files in the menu of the button `Open`.
  void InitMenu();
  /// Opens a path or address. Raises the failure of the load, apart from number 2 (the person did
  /// not want the file); the page is then empty.
  void OpenEcuFile(const std::string& file);
  /// The same, but tells a failure by a box.
  void openTold(const std::string& file);
  /// True when the file was saved. Tells by a box why not, except after a cancel.
  bool saveFile(bool saveAs = false);
  /// The first call after opening keeps the file beside it as ".bak"; errors are ignored, and not
  /// made good by a later call.
  void saveBackupFile();
  void SizeControls();
  void showUpdateCheckBase(bool visible);
  /// `percent` below 1 moves on by one step.
  void setUpdateCheckBaseProgress(int percent);

  // Addressing and identification.

  /// Fills the list of functions for a change of function.
  void ReadAddressingFile(const std::string& file);
  void GetLogicalAddressFromAddressingFile();
  /// Tells a file that cannot be read by a box. Raises TypeMismatch for an identifier that is no
  /// number.
  void ReadCanId(const std::string& file, std::int32_t address, std::int32_t& canXid,
                 std::int32_t& canRid, bool& found);
  /// The match code; `href` is empty and `text` says so when there is no match.
  int FindHrefTargetByIdentificationAndProtocol(std::int32_t function, std::int32_t protocol,
                                                std::int32_t diagVersion,
                                                const std::string& supplier,
                                                const std::string& soft, const std::string& version,
                                                std::string& href, std::string& text);
  /// Shows these values in the search panel. The protocol stays as the person chose it.
  void updateDetect(const std::string& function, const std::string& protocol,
                    const std::string& diagVersion, const std::string& supplier,
                    const std::string& soft, const std::string& version);
  /// The same, with the function of the open ECU; nothing without one.
  void AutoIdent(const std::string& diagVersion, const std::string& supplier,
                 const std::string& soft, const std::string& version);

 signals:
  void help(const std::string& module, const std::string& function);
  void checkdatabase();
  /// The person has begun a modification.
  void OnChange();
  /// The summary was validated and the file saved.
  void OnSave();
  void OnCancel();
  void OnNewECU();
  void UceSelected(bool loaded);
  /// Another ECU is about to be opened. Whoever hears it may save first, and sets `mayGoOn` to
  /// false when the open one has to stay.
  void CheckIfSaveNeeded(bool& mayGoOn);
  void DatabaseChanged(const QString& oldText, const QString& newText);

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

} // namespace kelmar
