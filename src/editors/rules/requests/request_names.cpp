// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/requests/request_names.h"

namespace kelmar {

namespace {

constexpr KeyedText confirmTitle(const char* key) {
  return {key, "User confirm"};
}

// Upper and lower case share the titles of other commands, and the texts of some speak of data: so
// they stand in the language files.
const RequestNameCommand commands[] = {
    {"PopupReqNormalize",
     {NameChange::Normalize,
      {"REQUESTS/MSG/PopupReqNormalize_Click/confirm/text",
       "Normalize space suppress white spaces at the start and end of the data name and replace "
       "multi-space by a single one.{crlf}Do you want to normalize selected data name?"},
      confirmTitle("REQUESTS/MSG/PopupReqNormalize_Click/confirm/title")}},
    {"PopupReqUcase",
     {NameChange::UpperCase,
      {"REQUESTS/MSG/PopupRequcase_Click/text", "Convert name to uppercase?"},
      confirmTitle("REQUESTS/MSG/PopupRequcase_Click/title")}},
    {"PopupReqlcase",
     {NameChange::LowerCase,
      {"REQUESTS/MSG/PopupReqlcase_Click/text", "Convert name to lowercase?"},
      confirmTitle("REQUESTS/MSG/PopupReqCapword_Click/title")}},
    {"PopupReqCapword",
     {NameChange::CapitalizeWords,
      {"REQUESTS/MSG/PopupReqCapword_Click/confirm/text",
       "Capitalize word of selected request names?"},
      confirmTitle("REQUESTS/MSG/PopupReqCapword_Click/confirm/title")}},
    {"PopupReqCapword1",
     {NameChange::CapitalizeWords1,
      {"REQUESTS/MSG/PopupReqCapword1_Click/confirm/text",
       "Capitalize word of selected request names?"},
      confirmTitle("REQUESTS/MSG/PopupReqCapword1_Click/confirm/title")}},
    {"PopupReqReplace",
     {NameChange::Replace,
      {"REQUESTS/MSG/PopupReqReplace_Click/confirm/text",
       "Replace '{0}' with '{1}'{crlf}for selected data?"},
      confirmTitle("REQUESTS/MSG/PopupReqReplace_Click/confirm/title"),
      {"REQUESTS/MSG/PopupReqReplace_Click/search/text", "Find what:"},
      {"REQUESTS/MSG/PopupReqReplace_Click/search/title", "Rename data:"},
      {"REQUESTS/MSG/PopupReqReplace_Click/replace/text", "Replace with:"},
      {"REQUESTS/MSG/PopupReqReplace_Click/replace/title", "Rename data:"}}},
};

} // namespace

std::span<const RequestNameCommand> requestNameCommands() {
  return commands;
}

const NameCommand* requestNameCommand(std::string_view entry) {
  for (const RequestNameCommand& row : commands)
    if (row.entry == entry) return &row.command;
  return nullptr;
}

} // namespace kelmar
