// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/modification_state.h"

namespace kelmar::frame {

void ModificationState::SetSaveNeed(bool value) {
  saveNeeded_ = value;
  surface_.setSelectorSaveNeed(value);
  const std::optional<std::string> name = surface_.targetName();
  std::string caption = "ECU";
  if (name) {
    if (*name == "New ECU") caption = "New ECU";
    if (saveNeeded_) caption += surface_.translated(" - Not saved -", "MAIN/MSG/notSaved/text");
  }
  surface_.setTabCaption(*rowOfTab("database"), caption);
}

void ModificationState::MarkTabModified(const PageRow& row, bool clean) {
  if (row.kind == PageKind::Selector || row.kind == PageKind::Check) return;
  if (clean)
    marked_.erase(&row);
  else
    marked_.insert(&row);
  surface_.setTabCaption(row,
                         surface_.translated(row.caption, row.captionKey) + (clean ? "" : " *"));
}

void ModificationState::showAgain() {
  SetSaveNeed(saveNeeded_);
  for (const PageRow* row : std::set(marked_))
    MarkTabModified(*row, false);
}

void ModificationState::NotePageChange() {
  ++pageChangeCount_;
  SetSaveNeed(true);
}

// With two modifications open, cancelling one of them leaves the file unsaved.
void ModificationState::NotePageCancel() {
  if (pageChangeCount_ != 1) return;
  pageChangeCount_ = 0;
  SetSaveNeed(false);
}

void ModificationState::ClearPageChanges() {
  pageChangeCount_ = 0;
  SetSaveNeed(false);
}

void ModificationState::BackupIfNeeded() {
  if (saveNeeded_) surface_.saveBackupFile();
}

bool ModificationState::SaveDatabaseFile() {
  return surface_.saveFile();
}

void ModificationState::OnChange(const PageRow& row) {
  MarkTabModified(row, false);
  if (row.kind == PageKind::Labels) return;
  BackupIfNeeded();
  if (row.kind != PageKind::Parameter) NotePageChange();
}

void ModificationState::OnSave(const PageRow& row, bool toFile) {
  MarkTabModified(row, true);
  if (row.kind == PageKind::Labels) return;
  if (row.kind == PageKind::Counted && !toFile) {
    NotePageChange(); // the edit is in the database now, and not in the file
    return;
  }
  saveFailed_ = !SaveDatabaseFile();
  if (!saveFailed_)
    ClearPageChanges();
  else if (row.kind == PageKind::Parameter)
    NotePageChange(); // not counted before, but now the database has what the file lacks
}

void ModificationState::OnCancel(const PageRow& row) {
  MarkTabModified(row, true);
  if (row.kind == PageKind::Counted || row.kind == PageKind::Selector) NotePageCancel();
}

bool ModificationState::ConfirmLeavePage(int currentPage, bool ask) {
  const PageRow* row = rowOfIndex(currentPage);
  if (row && row->kind != PageKind::Selector && row->kind != PageKind::Check) {
    saveFailed_ = false;
    // Labels are not asked: what they hold is no part of this file.
    const bool applied = row->kind == PageKind::Labels || surface_.testAndConfirmChange(*row);
    // A page that has just failed to save by itself has told why.
    if (applied && saveNeeded_) return !saveFailed_ && saveAndClear();
  }
  if (!ask || !saveNeeded_) return true;
  const std::optional<std::string> name = surface_.targetName();
  if (!name) return true;
  const platform::Box box{
      "", surface_.translated("Confirm save", "MAIN/MSG/confirmSave/title"),
      *name + surface_.translated(" change.", "MAIN/MSG/confirmSave/change") + "\r\n" +
          surface_.translated("Save Change ? ", "MAIN/MSG/confirmSave/question"),
      platform::Buttons::YesNo, platform::Icon::Question};
  return surface_.person().message(box) != platform::Answer::Yes || saveAndClear();
}

// The count of open modifications stays on purpose: only a save that a page asked for clears it.
bool ModificationState::saveAndClear() {
  if (!surface_.saveFile()) return false;
  SetSaveNeed(false);
  return true;
}

} // namespace kelmar::frame
