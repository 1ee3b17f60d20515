// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/target_item.h"

namespace kelmar {

// Walks over the live model, in the order of its collections.

template <class Visit>
void forEachRequest(const TargetItem& target, Visit visit) {
  if (!target.Requests()) return;
  for (RequestItem* request : *target.Requests())
    visit(*request);
}

inline DataPositionItem* positionOf(const RequestItem& request, std::string_view dataName) {
  return request.DataPositions ? request.DataPositions->ItemName(dataName) : nullptr;
}

template <class Visit>
void forEachScreen(const TargetItem& target, Visit visit) {
  if (!target.Categories) return;
  for (CategoryItem* category : *target.Categories) {
    if (!category->Screens) continue;
    for (ScreenItem* screen : *category->Screens)
      visit(*screen);
  }
}

template <class Visit>
void forEachDisplay(const TargetItem& target, Visit visit) {
  forEachScreen(target, [&](ScreenItem& screen) {
    if (!screen.DisplayItems) return;
    for (DisplayItem* display : *screen.DisplayItems)
      visit(*display);
  });
}

/// Deletes the displays that answer true, all over the screens.
template <class Gone>
void deleteDisplays(const TargetItem& target, Gone gone) {
  forEachScreen(target, [&](ScreenItem& screen) {
    if (screen.DisplayItems) screen.DisplayItems->deleteIf(gone);
  });
}

template <class Visit>
void forEachScenario(const TargetItem& target, Visit visit) {
  forEachScreen(target, [&](ScreenItem& screen) {
    if (!screen.ButtonItems) return;
    for (ButtonItem* button : *screen.ButtonItems)
      if (button->ScenarioItems) visit(*button->ScenarioItems);
  });
}

} // namespace kelmar
