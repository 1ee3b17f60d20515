// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/text_drag.h"
#include "desktop/clipboard.h"
#include "desktop/qt_text.h"
#include "editors/rules/requests/reply_template.h"
#include "editors/rules/requests/request_names.h"
#include "editors/rules/requests/request_tab_clipboard.h"
#include "editors/uce_requests_parts.h"
#include "exports/hex_commands.h"
#include "exports/rvt_command.h"
#include "language/multi_lang.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QToolBar>

#include <algorithm>

namespace kelmar {

using desktop::qs;
using desktop::u8;

void UceRequests::Parts::makeCommands() {
  const auto enabled = [this](const char* key) {
    return [this, key = std::string(key)] { return isRequestCommandEnabled(key, state()); };
  };
  std::vector<Command> all = page.findCommands();
  all.push_back({.key = "cancel",
                 .toolTip = "Cancel change (Ctrl Z)",
                 .icon = "cancel",
                 .run = [this] { page.guarded([this] { cancel(); }); },
                 .enabled = enabled("cancel"),
                 .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_Z)}});
  all.push_back({.key = "valid",
                 .toolTip = "Valid change",
                 .icon = "valid",
                 .run = [this] { page.guarded([this] { ValidChange(false); }); },
                 .enabled = enabled("valid")});
  all.push_back({.key = "save",
                 .toolTip = "Save change (Ctrl S)",
                 .icon = "save",
                 .run = [this] { page.guarded([this] { ValidChange(true); }); },
                 .enabled = enabled("save"),
                 .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_S)}});
  all.push_back({.key = "help",
                 .toolTip = "Help (F1)",
                 .icon = "help",
                 .run = [this] { help(); },
                 .shortcuts = {QKeySequence(Qt::Key_F1)}});
  commands = new CommandTable(&page, std::move(all));
  listCommands = new CommandTable(LVrequests, listKeys());
  commands->fillToolBar(*tbToolBar, {"cancel", "valid", "save", ""});
  listCommands->fillToolBar(*tbToolBar, {"new", "rename", "find", "", "cut", "copy", "paste", ""});
  commands->fillToolBar(*tbToolBar, {"help"});

  page.useMenu(
      QStringLiteral("PopupReq"), [this] { return requestMenu(state(), target(), request()); },
      [this](const MenuEntry& entry) { page.guarded([&] { chosen(entry); }); });
  new TextDrag(
      *LVrequests,
      [this] {
        std::string text;
        page.guarded([&] { text = copyRequests(*target(), selected()); });
        return text;
      },
      [this](std::string_view text) { return target() && looksLikeFragment(text, "Requests"); },
      [this](const std::string& text) { page.guarded([&] { pasteData(text); }); });
  connect(cbExportSendBufferToHex, &QPushButton::clicked, &page,
          [this] { exportSendBufferToHex(u8(TextReqBytes->text()), page.person()); });
  connect(cbImportSendBufferFromHex, &QPushButton::clicked, &page,
          [this] { page.guarded([this] { importHex(); }); });
}

/// In the fields these keys are those of any text.
std::vector<Command> UceRequests::Parts::listKeys() {
  const auto enabled = [this](const char* key) {
    return [this, key = std::string(key)] { return isRequestCommandEnabled(key, state()); };
  };
  const auto run = [this](void (Parts::*action)()) {
    return [this, action] { page.guarded([this, action] { (this->*action)(); }); };
  };
  const auto references = [this, enabled](const char* key, int letter, bool parameters, bool set) {
    return Command{
        .key = key,
        .run = [this, parameters, set] { page.guarded([&] { setReferences(parameters, set); }); },
        .enabled = enabled(key),
        .shortcuts = {QKeySequence(Qt::CTRL | Qt::ALT | static_cast<Qt::Key>(letter))}};
  };
  return {{.key = "new",
           .toolTip = "Add new request",
           .icon = "add",
           .run = run(&Parts::newOne),
           .enabled = enabled("new"),
           .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_N)}},
          {.key = "rename",
           .toolTip = "Rename request (F2)",
           .icon = "rename",
           .run = [this] { page.editActiveName(); },
           .enabled = enabled("rename"),
           .shortcuts = {QKeySequence(Qt::Key_F2)}},
          {.key = "find",
           .toolTip = "Find device",
           .icon = "find",
           .run = [this] { page.FindItem({}); },
           .enabled = enabled("find"),
           .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_F)}},
          {.key = "cut",
           .toolTip = "Cut selected requests (Ctrl X)",
           .icon = "cut",
           .run = run(&Parts::cut),
           .enabled = enabled("cut"),
           .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_X), QKeySequence(Qt::Key_Delete)}},
          {.key = "copy",
           .toolTip = "Copy selected requests to clipboard (Ctrl C)",
           .icon = "copy",
           .run = run(&Parts::copy),
           .enabled = enabled("copy"),
           .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_C)}},
          {.key = "paste",
           .toolTip = "Paste requests from clipboard (Ctrl V)",
           .icon = "paste",
           .run = [this] { page.guarded([this] { pasteData(desktop::clipboardText()); }); },
           .enabled = enabled("paste"),
           .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_V)}},
          {.key = "selectAll",
           .run = [this] { ListViewSelectAll(*LVrequests); },
           .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_A)}},
          references("PopupReqRefParamSet", Qt::Key_A, true, true),
          references("PopupReqRefParamClear", Qt::Key_Q, true, false),
          references("PopupReqRefDataSet", Qt::Key_P, false, true),
          references("PopupReqRefDataClear", Qt::Key_M, false, false)};
}

RequestPageState UceRequests::Parts::state() const {
  RequestPageState now;
  now.open = target() != nullptr;
  now.active = request() != nullptr;
  now.selected = static_cast<int>(LVrequests->selectedTags().size());
  now.pending = page.hasPendingEdits();
  now.canRvt = settings != nullptr;
  return now;
}

RequestSelection UceRequests::Parts::selected() const {
  RequestSelection requests;
  for (const RowTag tag : LVrequests->selectedTags())
    requests.push_back(static_cast<RequestItem*>(tag));
  return requests;
}

void UceRequests::Parts::chosen(const MenuEntry& entry) {
  const std::string& key = entry.key;
  if (key == "PopupReqCut")
    cut();
  else if (key == "PopupReqCopy")
    copy();
  else if (key == "PopupReqCopyText")
    copyText();
  else if (key == "PopupReqPaste")
    pasteData(desktop::clipboardText());
  else if (key == "PopupReplyTemplateNormalize")
    normalizeReply();
  else if (key == "PopupReplyTemplateNormalizeAll")
    normalizeAllReplies();
  else if (key == "mnuGenerateRVTtests")
    generateTests();
  else if (key == "mnuTradConfigCopy")
    copyTradConfig();
  else if (key == "PopupReqHelp")
    emit page.help("request", "");
  else if (!chooseRows(key) && !runOnFlags(key))
    changeNames(key);
}

bool UceRequests::Parts::chooseRows(const std::string& key) {
  const auto where = [this](bool (*wanted)(const RequestItem&)) {
    page.selectWhere([wanted](RowTag tag) { return wanted(*static_cast<RequestItem*>(tag)); });
    return true;
  };
  if (key == "mnuRequestSelectAll") {
    ListViewSelectAll(*LVrequests);
    return true;
  }
  if (key == "mnuRequestSelectMaintenability")
    return where([](const RequestItem& item) { return item.DossierMaintenabilite; });
  if (key == "mnuRequestSelectManualSend")
    return where([](const RequestItem& item) { return item.ManuelSend; });
  if (key == "mnuRequestSelectWithParam") return where(hasParameter);
  if (key == "mnuRequestSelectWithoutParam")
    return where([](const RequestItem& item) { return !hasParameter(item); });
  if (key == "mnuTradConfigSelectWriteRequests") return where(isWriteRequest);
  return false;
}

bool UceRequests::Parts::runOnFlags(const std::string& key) {
  const auto set = [this](auto setFlag, QCheckBox& box, bool value) {
    const RequestSelection changed = setFlag(selected(), value);
    if (changed.empty()) return true;
    LVrequests->rows().refreshAll();
    if (std::find(changed.begin(), changed.end(), request()) != changed.end()) {
      const EditState::Loading loading = page.edits().load();
      box.setChecked(value);
    }
    applied(Flagged);
    return true;
  };
  if (key == "PopupReqManuelSet") return set(setManuelSend, *CheckManualSend, true);
  if (key == "PopupReqManuelClear") return set(setManuelSend, *CheckManualSend, false);
  if (key == "PopupReqDMSet") return set(setDossierMaintenabilite, *CheckReport, true);
  if (key == "PopupReqDMClear") return set(setDossierMaintenabilite, *CheckReport, false);
  const bool parameters = key.starts_with("PopupReqRefParam");
  if (!parameters && !key.starts_with("PopupReqRefData")) return false;
  setReferences(parameters, key.ends_with("Set"));
  return true;
}

void UceRequests::Parts::setReferences(bool parameters, bool setFlag) {
  if (!target()) return;
  const RequestSelection changed = SetReferenceAll(*target(), selected(), parameters, setFlag);
  if (changed.empty()) return;
  for (const RequestItem* item : changed)
    if (item == request()) positions->setScreen_DataPos();
  applied(Flagged);
}

void UceRequests::Parts::newOne() {
  if (!target()) return;
  page.TestAndConfirmChange();
  page.addRow(newRequest(*target()));
  page.SetChanged(Pasted);
}

void UceRequests::Parts::cut() {
  if (selected().empty()) return;
  // What cannot be copied is told, and can be deleted all the same.
  page.guarded([this] { desktop::setClipboardText(copyRequests(*target(), selected())); });
  CutRequest();
}

void UceRequests::Parts::CutRequest() {
  const CMultiLangEx& texts = language::global();
  const platform::Answer answer = page.person().message(
      {"REQUESTS/MSG/CutRequest/text",
       texts.getMultilangMessageDefault("Confirmer delete", "REQUESTS/MSG/CutRequest/title"),
       texts.getMultilangMessageDefault(
           "Do you really want to delete the selected request ?{crlf}{crlf}****** D A N G E R "
           "******{crlf}Deleting request also delete reference in devices and/or "
           "screens{crlf}without means to recover them.",
           "REQUESTS/MSG/CutRequest/text"),
       platform::Buttons::OkCancel, platform::Icon::Critical});
  if (answer != platform::Answer::Ok) return;
  const RequestSelection gone = selected();
  // What was typed for a request that is gone goes with it.
  if (page.hasPendingEdits() && std::find(gone.begin(), gone.end(), request()) == gone.end())
    page.TestAndConfirmChange();
  LVrequests->rows().setRows({}); // nothing is to show an item that is gone
  page.dropActive();
  target()->DeleteRequests(gone);
  dropActiveAndRebuild();
  // Told also when no request is left to be active.
  page.announceApplied();
}

void UceRequests::Parts::forgetMarks() {
  normalised.clear();
  withoutBytes.clear();
  renamed.clear();
}

void UceRequests::Parts::dropActiveAndRebuild() {
  forgetMarks();
  positions->leave();
  page.dropActive();
  positions->refreshDatas();
  page.fillList();
}

void UceRequests::Parts::copy() {
  if (!selected().empty()) desktop::setClipboardText(copyRequests(*target(), selected()));
}

void UceRequests::Parts::copyText() {
  bool broken = false;
  desktop::setClipboardText(copyRequestsText(selected(), broken));
  if (broken) warnBroken();
}

void UceRequests::Parts::copyTradConfig() {
  bool broken = false;
  const std::string text = tradConfigText(selected(), broken);
  if (text.empty()) return;
  desktop::setClipboardText(text);
  if (broken) warnBroken();
}

void UceRequests::Parts::pasteData(const std::string& text) {
  if (!target()) return;
  page.TestAndConfirmChange(); // the fields are about to show another request
  const RequestPaste done = pasteRequests(text, *database, *target(), page.person());
  if (!done.lastRequestName.empty()) page.rememberName(done.lastRequestName);
  dropActiveAndRebuild();
  if (done.changed) page.announceApplied();
}

void UceRequests::Parts::changeNames(const std::string& key) {
  const NameCommand* command = requestNameCommand(key);
  if (!command) return;
  const auto newName = askNameChange(*command, page.person());
  if (!newName) return;
  std::unordered_map<RowTag, std::optional<std::uint32_t>> colours;
  for (RequestItem* item : selected())
    colours[item] = lookOf(item).colour;
  const RequestSelection done = renameRequests(*target(), selected(), newName);
  if (done.empty()) return;
  for (RequestItem* item : done)
    renamed[item] = colours[item];
  LVrequests->rows().refreshAll();
  if (request()) page.rememberName(request()->requestName);
  showCaption();
  ShowErrorMsg();
  applied(Renamed);
}

namespace {

void tell(platform::Person& person, const char* key, const std::string& text) {
  person.message({key,
                  language::global().getMultilangMessageDefault(
                      "Information", "REQUESTS/MSG/PopupReplyTemplateNormalize_Click/title"),
                  text, platform::Buttons::Ok, platform::Icon::Information});
}

} // namespace

void UceRequests::Parts::normalizeReply() {
  RequestItem* item = request();
  if (!item) return;
  const bool pending = page.edits().changed();
  const CMultiLangEx& texts = language::global();
  if (!item->RequestBytes) {
    withoutBytes.insert(item);
    renamed.erase(item);
  }
  const bool changed = NormalizeReplyTemplate(*item, *target());
  normalised[item] = changed;
  if (changed) {
    const EditState::Loading loading = page.edits().load();
    Rtemplate->setText(qs(item->ReplyBytes->HexText()));
    colourFields();
  }
  LVrequests->rows().refresh(item);
  // The two texts stand crosswise, on purpose.
  if (changed) {
    tell(page.person(), "REQUESTS/MSG/PopupReplyTemplateNormalize_Click/noChange/text",
         texts.getMultilangMessageDefault(
             "The reply template is OK. No change applied to the database.",
             "REQUESTS/MSG/PopupReplyTemplateNormalize_Click/noChange/text"));
    page.SetChanged(Edited);
    applied(Flagged, pending);
    return;
  }
  tell(page.person(), "REQUESTS/MSG/PopupReplyTemplateNormalize_Click/change/text",
       texts.getMultilangMessageDefault(
           "The reply template has been changed.{crlf}{crlf}Modified requests have sent bytes in "
           "blue bold in the list.{crlf}{crlf}You should save the database to keep modifications.",
           "REQUESTS/MSG/PopupReplyTemplateNormalize_Click/change/text"));
}

void UceRequests::Parts::normalizeAllReplies() {
  if (!target()) return;
  const CMultiLangEx& texts = language::global();
  const bool pending = page.edits().changed();
  int count = 0;
  for (const RowTag tag : LVrequests->rows().tags()) {
    auto& item = *static_cast<RequestItem*>(tag);
    const bool changed = NormalizeReplyTemplate(item, *target());
    normalised[tag] = changed;
    if (!changed) continue;
    ++count;
    if (&item != request()) continue;
    const EditState::Loading loading = page.edits().load();
    Rtemplate->setText(qs(item.ReplyBytes->HexText()));
    colourFields();
  }
  LVrequests->rows().refreshAll();
  if (count == 0) {
    tell(page.person(), "REQUESTS/MSG/PopupReplyTemplateNormalizeAll_Click/noChange/text",
         texts.getMultilangMessageDefault(
             "All reply templates are OK. No change applied to the database.",
             "REQUESTS/MSG/PopupReplyTemplateNormalizeAll_Click/noChange/text"));
    return;
  }
  tell(page.person(), "REQUESTS/MSG/PopupReplyTemplateNormalizeAll_Click/change/text",
       texts.getMultilangMessageDefault(
           "{0} reply templates has been changed.{crlf}{crlf}Modified requests have sent bytes in "
           "blue bold in the list.{crlf}{crlf}You should save the database to keep modifications.",
           "REQUESTS/MSG/PopupReplyTemplateNormalizeAll_Click/change/text", std::to_string(count)));
  page.SetChanged(Edited);
  applied(Flagged, pending);
}

void UceRequests::Parts::generateTests() {
  if (!settings) return;
  std::vector<const RequestItem*> requests;
  for (const RequestItem* item : selected())
    requests.push_back(item);
  generateRvtTests(target(), requests, page.person(), *settings);
}

void UceRequests::Parts::importHex() {
  if (!request()) return;
  if (const auto text = importSendBufferFromHex(*target(), page.person()))
    TextReqBytes->setText(qs(*text));
}

} // namespace kelmar
