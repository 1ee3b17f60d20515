// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/selector_load_report.h"

#include "language/multi_lang.h"

#include <algorithm>

namespace kelmar {

std::string loadReportHeadline(const CMultiLangEx& texts, std::size_t count) {
  if (count == 0) return {};
  if (count == 1)
    return texts.getMultilangMessageDefault("1 item could not be kept",
                                            "SELECTOR/MSG/LOAD_REPORT/one");
  return texts.getMultilangMessageDefault("{0} items could not be kept",
                                          "SELECTOR/MSG/LOAD_REPORT/text", std::to_string(count));
}

std::string loadReportLine(const CMultiLangEx& texts, const NotKept& item) {
  std::string line = item.kind;
  if (!item.name.empty()) line += " " + item.name;
  if (!item.path.empty())
    line += " " + texts.getMultilangMessageDefault("at", "SELECTOR/MSG/LOAD_REPORT/at") + " " +
            item.path;
  if (item.line != 0)
    line += ", " + texts.getMultilangMessageDefault("line", "SELECTOR/MSG/LOAD_REPORT/line") + " " +
            std::to_string(item.line);
  return line + ": " + item.reason;
}

std::string loadReportText(const CMultiLangEx& texts, const LoadReport& report, std::size_t most) {
  if (report.empty()) return {};
  std::string text = loadReportHeadline(texts, report.size());
  const std::size_t shown = std::min(most, report.size());
  for (std::size_t i = 0; i < shown; ++i)
    text += "\r\n" + loadReportLine(texts, report[i]);
  if (shown < report.size())
    text += "\r\n" + texts.getMultilangMessageDefault("... and {0} more",
                                                      "SELECTOR/MSG/LOAD_REPORT/more",
                                                      std::to_string(report.size() - shown));
  return text;
}

} // namespace kelmar
