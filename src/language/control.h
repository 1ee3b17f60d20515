// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kelmar::language {

/// What a text of the language file may be given to.
enum class ControlProperty { Caption, ToolTip, Text, FontName, FontSize };

/// A tab, a column or a button. Those without key are not translated.
struct ControlPart {
  std::string key;
  std::vector<std::string> menuKeys; ///< entries of a button's menu
};

/// Names one part of a control, or the control itself.
struct PartPosition {
  int part = -1; ///< index into parts()
  int menu = -1; ///< index into the part's menuKeys
};

/// A control that can be translated, whatever shows it.
class Control {
 public:
  virtual ~Control() = default;

  /// "Label", "CommandButton", ... Other types than those of controlTexts are left alone.
  virtual std::string typeName() const = 0;
  virtual std::string name() const = 0;
  /// Position in a control array; none for a control that stands alone.
  virtual std::optional<int> index() const { return std::nullopt; }
  virtual std::vector<ControlPart> parts() const { return {}; }

  /// Shows a text. May raise: then the rest of this control stays as it is.
  virtual void apply(ControlProperty property, const std::string& text, PartPosition where) = 0;
  virtual void applyFontSize(float points) = 0;
};

/// One text of a control in the language file.
struct ControlText {
  std::string path; ///< relative to the element of the page's controls
  ControlProperty property = ControlProperty::Caption;
  PartPosition where;
};

/// All texts that a control of this type may have, in the order in which they are applied. Empty
/// for a type that is not translated.
std::vector<ControlText> controlTexts(const Control& control);

} // namespace kelmar::language
