// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <string>
#include <string_view>

namespace kelmar {

class OmnikorLibXml;

/// What every page of the tabbed editor is to the frame. Pages never call one another: they emit,
/// and the frame routes.
///
/// The properties by which other pages lead here (`EditDataName` and the like) are declared by
/// the page with Q_PROPERTY as QString; the frame writes them by name.
class Page : public QWidget {
  Q_OBJECT

 public:
  explicit Page(QWidget* parent = nullptr) : QWidget(parent) {}

  /// Called once, at start: reads the files that the page cannot do without, builds lists and
  /// translates the page's own controls. Raises Failure where a file is missing.
  virtual void InitControl() = 0;

  /// The language changes; the page reads its texts again, but for those that InitControl is still
  /// to read. UTF-8 code such as "fr".
  virtual void setLang(const std::string& lang) = 0;

  /// Shows the database, at every entry of the page. `file` is the path or address that it came
  /// from; only the screen page uses it. The database outlives the page's use of it.
  virtual void displayDatas(OmnikorLibXml& database, const std::string& file) = 0;

  /// The page is left: true when pending edits were applied to the database, so that the file is
  /// to be saved. May ask the person.
  virtual bool TestAndConfirmChange() = 0;

  /// Writes one of the page's text properties. False when the page has none of this name.
  bool writeProperty(const char* name, std::string_view value);

 signals:
  /// The user has begun a modification.
  void OnChange();
  /// The page's edits are validated; `toFile` asks for saving. Pages whose event has no argument
  /// always save.
  void OnSave(bool toFile);
  /// The user has dropped the modification.
  void OnCancel();

  // Go to an item of another page.
  void OnDataSelect(const std::string& data);
  void OnRequestSelect(const std::string& request, const std::string& data);
  void OnDeviceSelect(const std::string& device, const std::string& deviceData);
  void OnDisplaySelect(const std::string& category, const std::string& screen,
                       const std::string& data);
  void OnDIDSelect(const std::string& did, const std::string& data);

  /// Handed on to the screen page at once, without a change of tab.
  void OnCopyDataToScreen(const std::string& first, const std::string& second,
                          const std::string& third);

  /// Raised upward unchanged.
  void help(const std::string& module, const std::string& function);
};

} // namespace kelmar
