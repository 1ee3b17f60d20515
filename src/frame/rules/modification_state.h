// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/rules/page_table.h"
#include "platform/person.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>

namespace kelmar::frame {

/// What the modification state needs of the window around it.
class FrameSurface {
 public:
  virtual ~FrameSurface() = default;
  virtual void setTabCaption(const PageRow& row, const std::string& caption) = 0;
  /// Text of a language key, or the default text.
  virtual std::string translated(std::string_view defaultText, std::string_view key) const = 0;
  virtual void setSelectorSaveNeed(bool value) = 0;
  virtual bool saveFile() = 0;
  virtual void saveBackupFile() = 0;
  /// Name of the open ECU; none without a database or without an ECU in it.
  virtual std::optional<std::string> targetName() const = 0;
  virtual bool testAndConfirmChange(const PageRow& row) = 0;
  virtual platform::Person& person() = 0;
};

/// Whether the database differs from its file, how many modifications are open, and what the tabs
/// show of it.
class ModificationState {
 public:
  /// `surface` must outlive it. Nothing is called yet.
  explicit ModificationState(FrameSurface& surface) : surface_(surface) {}

  bool saveNeeded() const { return saveNeeded_; }
  std::int32_t pageChangeCount() const { return pageChangeCount_; }

  void SetSaveNeed(bool value);
  /// A " *" behind the caption, or none when `clean`. The first tab has no such mark.
  void MarkTabModified(const PageRow& row, bool clean);
  /// Puts suffix and marks behind captions that were translated anew.
  void showAgain();
  void NotePageChange();
  void NotePageCancel();
  void ClearPageChanges();
  /// Before the second modification, as the first one finds nothing to be saved.
  void BackupIfNeeded();
  bool SaveDatabaseFile();

  // Reactions to the events of a page.
  void OnChange(const PageRow& row);
  void OnSave(const PageRow& row, bool toFile);
  void OnCancel(const PageRow& row);

  /// Lets the page that is being left take over its edits. `ask` adds the question whether to save
  /// what was not saved by that. False when something was to be saved and could not be.
  bool ConfirmLeavePage(int currentPage, bool ask);

 private:
  bool saveAndClear();

  FrameSurface& surface_;
  bool saveNeeded_ = false;
  bool saveFailed_ = false; // the last one that a page asked for
  std::int32_t pageChangeCount_ = 0;
  std::set<const PageRow*> marked_; // rows of the page table
};

} // namespace kelmar::frame
