// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/commands.h"
#include "app/cli/edit_file.h"
#include "app/cli/telling_person.h"
#include "base/text.h"
#include "editors/rules/datas/data_clipboard.h"
#include "editors/rules/datas/data_commands.h"
#include "editors/rules/requests/request_tab_clipboard.h"
#include "editors/rules/requests/request_xml_clipboard.h"
#include "platform/files.h"
#include "xml/encoding.h"

#include <unordered_set>

namespace kelmar::cli {

namespace {

constexpr char brokenCell[] =
    "A copied cell holds a line break or a tab: pasted back, it will not be the same.";

enum class Kind { Datas, Requests };

Kind kindOf(const Arguments& arguments) {
  const std::string& word = arguments.words()[1];
  if (word == "data") return Kind::Datas;
  if (word == "requests") return Kind::Requests;
  throw WrongUse("what is copied or pasted is 'data' or 'requests', not '" + word + "'");
}

/// Those of the list that the words behind the kind name, or all, in the order of the list.
template <class Item, class Collection>
std::vector<Item*> chosen(const std::vector<Item*>& list, const Collection& items, const char* kind,
                          const Words& words) {
  if (words.size() == 2) return list;
  std::unordered_set<const Item*> named;
  for (std::size_t i = 2; i < words.size(); ++i)
    named.insert(itemNamed(items, kind, words[i]));
  std::vector<Item*> found;
  for (Item* item : list)
    if (named.contains(item)) found.push_back(item);
  return found;
}

/// The clipboard form; `broken` for tab text that does not read back.
std::string copied(TargetItem& target, const Arguments& arguments, bool& broken) {
  const Words& words = arguments.words();
  const bool asText = arguments.has("--text");
  if (kindOf(arguments) == Kind::Datas) {
    const auto datas = chosen(listedDatas(target), target.datas(), "Data", words);
    if (!asText) return copyDatas(datas);
    const DataText text = copyDatasText(datas);
    broken = text.hasBrokenCell;
    return text.text;
  }
  std::vector<RequestItem*> list;
  if (target.Requests())
    for (RequestItem* request : *target.Requests())
      list.push_back(request);
  const RequestSelection requests = chosen(list, target.Requests(), "Request", words);
  return asText ? copyRequestsText(requests, broken) : copyRequests(target, requests);
}

std::optional<platform::Answer> answerOf(const Arguments& arguments) {
  const auto word = arguments.value("--answer");
  if (!word) return std::nullopt;
  if (*word == "yes") return platform::Answer::Yes;
  if (*word == "no") return platform::Answer::No;
  if (*word == "cancel") return platform::Answer::Cancel;
  throw WrongUse("option --answer is yes, no or cancel");
}

/// What a clipboard would hold after a program had put the file there: text, whatever encoding an
/// XML declaration in it names. Spreadsheets also write UTF-16 with a mark.
std::string textOfFile(const std::string& path) {
  std::string bytes = platform::readFile(path);
  if (bytes.starts_with("\xEF\xBB\xBF")) {
    bytes.erase(0, 3);
  } else if (bytes.starts_with("\xFF\xFE")) {
    bytes = xml::toUtf8(std::string_view(bytes).substr(2), xml::Encoding::Utf16LittleEndian);
  } else if (bytes.starts_with("\xFE\xFF")) {
    bytes = xml::toUtf8(std::string_view(bytes).substr(2), xml::Encoding::Utf16BigEndian);
  }
  if (fromCodePoints(toCodePoints(bytes)) != bytes)
    throw Failure(1, "", "'" + path + "' is no text in UTF-8, nor in UTF-16 with a mark");
  return bytes;
}

} // namespace

int runCopy(const Arguments& arguments, Output& output) {
  kindOf(arguments);
  if (arguments.has("--text") == arguments.has("--xml"))
    throw WrongUse("copy needs one of --text and --xml");
  Session session(arguments.words()[0], arguments);
  if (!session.load()) return failed;
  try {
    bool broken = false;
    output << copied(session.target(), arguments, broken);
    if (broken) complain(arguments.words()[0] + ": warning: " + brokenCell);
    return done;
  } catch (const Failure& failure) {
    return session.tell(failure);
  }
}

int runPaste(const Arguments& arguments, Output& output) {
  const Kind kind = kindOf(arguments);
  const auto input = arguments.value("-i");
  if (!input || input->empty()) throw WrongUse("paste needs -i INPUT");
  TellingPerson person(answerOf(arguments));
  return editFile(arguments, [&](TargetItem& target, const Words&) {
    const std::string text = textOfFile(platform::localPathOf(*input));
    if (kind == Kind::Requests)
      pasteRequests(text, *target.parent, target, person);
    else
      output << pasteDatas(text, *target.parent, target, person).clipboard;
  });
}

} // namespace kelmar::cli
