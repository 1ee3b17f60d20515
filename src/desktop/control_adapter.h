// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "language/control.h"

#include <QPointer>

#include <functional>

class QAction;
class QToolBar;

namespace kelmar::desktop {

/// A widget or an action as the language service sees it.
class ControlAdapter : public language::Control {
 public:
  /// `control` has a name and a type name. What is deleted meanwhile is passed over.
  explicit ControlAdapter(QObject& control) : control_(&control) {}

  std::string typeName() const override;
  std::string name() const override;
  std::optional<int> index() const override;
  std::vector<language::ControlPart> parts() const override;
  void apply(language::ControlProperty property, const std::string& text,
             language::PartPosition where) override;
  void applyFontSize(float points) override;

 private:
  void setCaption(const QString& text);
  void setToolTip(const QString& text);
  void applyToTab(language::ControlProperty property, const QString& text, int tab);
  void applyToButton(QToolBar& bar, const QString& text, language::PartPosition where);

  QPointer<QObject> control_;
};

} // namespace kelmar::desktop
