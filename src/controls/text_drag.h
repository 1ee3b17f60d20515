// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPoint>

#include <functional>
#include <string>
#include <string_view>

namespace kelmar {

class ListView;

/// Dragging the selected rows of a list as text, and dropping such text onto it.
class TextDrag : public QObject {
  Q_OBJECT

 public:
  /// `copied` gives the text of the selected rows, empty for no drag; `accepts` tells a text that
  /// may be dropped; `dropped` gets it once the drop is over, so that it may ask questions. The
  /// object belongs to the list.
  TextDrag(ListView& list, std::function<std::string()> copied,
           std::function<bool(std::string_view)> accepts,
           std::function<void(const std::string&)> dropped);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool mouseMoved(QPoint where, Qt::MouseButtons buttons);

  ListView& list_;
  std::function<std::string()> copied_;
  std::function<bool(std::string_view)> accepts_;
  std::function<void(const std::string&)> dropped_;
  bool pressed_ = false;
  QPoint pressedAt_;
};

/// A fragment of the clipboard, told by its ends: the text, trimmed, starts with "<root" and ends
/// with "root>".
bool looksLikeFragment(std::string_view text, std::string_view root);

} // namespace kelmar
