// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/datas/fiche.h"

namespace kelmar {

FicheKind ficheKind(std::string_view fiche) {
  const auto holds = [&](std::string_view part) { return fiche.find(part) != fiche.npos; };
  if (holds("{\\rtf1")) return FicheKind::RichText;
  return holds("</DIV>") || holds("</P>") ? FicheKind::Page : FicheKind::Plain;
}

std::string fichePage(std::string_view fiche) {
  return "<html> " + std::string(fiche) + " </html>";
}

} // namespace kelmar
