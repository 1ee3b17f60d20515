// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/datas/data_clipboard.h"

#include "common/data_import.h"
#include "common/item_names.h"
#include "common/tab_text.h"
#include "language/multi_lang.h"

namespace kelmar {

std::string copyDatas(SelectedDatas datas) {
  xml::Writer out;
  out.open("Datas");
  out.lineFeed();
  DataDefinitions definitions(out);
  for (const DataItem* data : datas)
    definitions.add(data);
  out.close();
  return out.take();
}

DataPaste pasteDatas(std::string_view clipboard, OmnikorLibXml& database, TargetItem& target,
                     platform::Person& person, const TakesLog& takesLog) {
  const std::string_view text = upToZero(clipboard);
  if (!target.datas()) return {};
  xml::Document document;
  if (!document.loadXML(std::string(text))) return pasteDatasText(text, target, person, takesLog);
  const xml::Node root = document.root();
  if (std::string_view(root.name()) != "Datas") {
    const CMultiLangEx& texts = language::global();
    constexpr char badClipboardKey[] = "DATAS/MSG/pasteData/badClipboardData/text";
    person.message({badClipboardKey,
                    texts.getMultilangMessageDefault("Clipboard error",
                                                     "DATAS/MSG/pasteData/badClipboardData/title"),
                    texts.getMultilangMessageDefault(
                        "Bad clipboard content. You can paste only Data", badClipboardKey),
                    platform::Buttons::Ok, platform::Icon::Exclamation});
    return {};
  }
  DataItems pasted;
  // Without an owner while they are named: the names are tested here.
  pasted.loadXml(database, root, nullptr);
  DataPaste result;
  CopyNames copies;
  std::vector<DataItems::Pointer> added;
  std::unordered_set<std::string> names;
  for (const DataItems::Pointer& data : pasted.members()) {
    const std::string name = copies.freeName(data->dataName(), [&](const std::string& candidate) {
      return target.datas()->ItemName(candidate) ||
             names.contains(std::string(FoldedKey(candidate).view()));
    });
    names.emplace(FoldedKey(name).view());
    data->setDataName(name);
    data->parent = &target;
    result.lastName = name;
    added.push_back(data);
  }
  target.datas()->AddDatasSorted(added);
  result.changed = !added.empty();
  return result;
}

} // namespace kelmar
