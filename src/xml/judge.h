// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "xml/expat_run.h"

namespace kelmar::xml {

/// Says whether a text is well formed, and keeps nothing of it. Where the text has what a parse in
/// place cannot know, the run ends early with needsEvents: a DTD, whose entities and default values
/// belong into the tree, or a processing instruction of several lines, whose line ends count as
/// line feeds.
class Judge : public ExpatRun {
 public:
  Judge(const Limits& limits, std::size_t size);

  bool needsEvents() const { return needsEvents_; }

 private:
  void demandEvents();

  bool needsEvents_ = false;
};

} // namespace kelmar::xml
