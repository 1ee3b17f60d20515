// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

namespace kelmar::platform {

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Icon { None, Critical, Question, Exclamation, Information };
enum class Answer { Ok, Cancel, Yes, No };

/// A message box. `key` is the language key of its text, or empty where the text has none.
struct Box {
  std::string key;
  std::string title;
  std::string text;
  Buttons buttons = Buttons::Ok;
  Icon icon = Icon::None;
};

/// A question for a file name.
struct FileQuestion {
  enum class Kind { Open, Save, Folder };
  Kind kind = Kind::Open;
  std::string title;
  std::string filter;           ///< "Ecu Files (*.xml)|*.xml|All files (*.*)|*.*"
  std::string defaultExtension; ///< ".xml"; added to an answer that fits no pattern
  std::string proposal;         ///< proposed path or name, may be empty
};

/// A question for one line of text. `key` is the language key of its text, or empty.
struct InputQuestion {
  std::string key;
  std::string title;
  std::string text;
  std::string proposal; ///< stands in the field, selected
};

/// The one who answers. One real implementation (desktop/), one scripted for tests.
class Person {
 public:
  virtual ~Person() = default;
  virtual Answer message(const Box& box) = 0;
  /// The chosen absolute path; none on cancel. Save asks before it overwrites.
  virtual std::optional<std::string> file(const FileQuestion& question) = 0;
  /// Empty on cancel, and where nobody sits who could type.
  virtual std::string input(const InputQuestion&) { return {}; }
};

} // namespace kelmar::platform
