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

  /// Once: reads `parametersFile` below `basePath` and fills the tree from the folders that it
  /// names. Trouble is shown in the control itself.
  void initialise(const std::string& basePath, const std::string& parametersFile,
                  const std::string& siteKey);

  /// Address of the selected ECU file, "/" as separator; empty without one.
  std::string currentAddress() const;
  /// Several lines, joined by line feeds, about the selection, from the head of the file alone.
  std::string description() const;
  /// That of the selected ECU file; 0 when there is none.
  std::int32_t functionAddress() const;
  std::string addressingFile() const;
  std::string projectsFile() const;   ///< empty when there is none
  std::string selectionLabel() const; ///< name of the data set in use
  /// From the site's parameters; empty options mean that the site says nothing.
  std::string xmlEncoding() const;
  bool hasXmlStyleSheet() const;
  std::string xmlStyleSheet() const;

  /// Match code and address of the best ECU of the tree, whatever the filter shows; -1 and an empty
  /// address when there is none. Shows its progress; events are let through, but no input.
  int findByIdentification(std::int32_t function, std::int32_t protocol, std::int32_t diagVersion,
                           const std::string& supplier, const std::string& soft,
                           const std::string& version, std::string& address);

  /// Reads the parameter file and the folders again, and keeps data set, filter, open folders and
  /// selection.
  void reload();

 signals:
  /// Return, Enter or a double click on an ECU file.
  void fileChosen(const QString& address);
  /// A little after the selection has changed, so that keys held down are not slowed by reading.
  void selectionChanged();
  /// Before selectionChanged, when the function is another than the last one announced.
  void functionAddressChanged(qint32 value);
  /// With the label of the new data set.
  void dataSetChanged(const QString& newText);
  void treeReloaded();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

} // namespace kelmar
