// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <cstdint>
#include <memory>
#include <string>

namespace kelmar {

/// The selection control: the tree of vehicles, families and ECU files of the site, with a filter
/// box, and the search by identification.
class ecuSelector : public QWidget {
  Q_OBJECT

 public:
  explicit ecuSelector(QWidget* parent = nullptr);
  ~ecuSelector() override;

  std::string lang() const;
  void setLang(const std::string& code);
  std::string RemoteDataServer() const;
  void setRemoteDataServer(const std::string& server);

  /// Once: reads `parametersFile` below `basePath` and fills the tree from the folders that it names.
  /// Trouble is shown in the control itself.
  void initialise(const std::string& basePath, const std::string& parametersFile,
                  const std::string& siteKey);

  /// Address of the selected ECU file, "/" as separator; empty without one.
  std::string currentAddress() const;
  /// Several lines about the selection, from the head of the file alone.
  std::string description() const;
  std::int32_t functionAddress() const;
  std::string addressingFile() const;
  std::string projectsFile() const; ///< empty when there is none
  std::string selectionLabel() const; ///< name of the data set in use
  /// From the site's parameters; empty options mean that the site says nothing.
  std::string xmlEncoding() const;
  bool hasXmlStyleSheet() const;
  std::string xmlStyleSheet() const;

  /// Match code and address (empty when there is none) of the best ECU of the tree.
  int findByIdentification(std::int32_t function, std::int32_t protocol, std::int32_t diagVersion,
                           const std::string& supplier, const std::string& soft,
                           const std::string& version, std::string& address);

  /// Reads the folders again and keeps the selection.
  void reload();

 signals:
  void fileChosen(const QString& address);
  void selectionChanged();
  void functionAddressChanged(qint32 value);
  void dataSetChanged(const QString& newText);
  void treeReloaded();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

} // namespace kelmar
