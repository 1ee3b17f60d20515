// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/person.h"

#include <QString>

class QWidget;

namespace kelmar::desktop {

/// The person in front of the screen: every message box and every question for a file of the
/// program opens here and nowhere else.
///
/// Dialogs are modal to the active window. They bear names by which tests find them: a box is
/// "messageBox" with the property "key", its buttons are "buttonOk", "buttonCancel", "buttonYes"
/// and "buttonNo"; a file dialog is "fileDialog", the question before overwriting
/// "overwriteBox", an input line is "inputBox" with the property "key" and the field "inputText".
class DesktopPerson : public platform::Person {
 public:
  /// Native uses the file dialog of the desktop where it offers one. Own always uses the dialog of
  /// the widget library; so does a non-empty environment variable KELMAR_OWN_DIALOGS.
  enum class FileDialogs { Native, Own };
  explicit DesktopPerson(FileDialogs dialogs = FileDialogs::Native);

  /// The first button is the default one; Escape and the close button of the window give Cancel,
  /// or No where there is no Cancel, or Ok where there is nothing else.
  platform::Answer message(const platform::Box& box) override;
  /// A save into a missing folder is refused in the dialog. A proposal without folder opens in the
  /// folder of the last answer.
  std::optional<std::string> file(const platform::FileQuestion& question) override;
  std::string input(const platform::InputQuestion& question) override;

 private:
  bool mayBeWritten(QWidget* parent, const QString& file) const;

  bool native_;
  QString lastFolder_;
};

/// "Ecu Files (*.xml)|*.xml|All files (*.*)|*.*" in the form of the file dialog:
/// "Ecu Files (*.xml)", "All files (*)". "*.*" means every file, as no dot is needed in a name.
QStringList nameFilters(const std::string& filter);

} // namespace kelmar::desktop
