// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <utility>

namespace kelmar {

/// What a page knows of its edit buffer: whether code is filling the controls right now, and
/// whether a person has changed something since the item was last shown or taken over.
class EditState {
 public:
  /// A set of kinds of change; each page gives its bits a meaning.
  using Kinds = std::uint32_t;

  /// `firstChange` is called at the first change after the start and after each clear().
  explicit EditState(std::function<void()> firstChange = {})
      : firstChange_(std::move(firstChange)) {}
  EditState(const EditState&) = delete;
  EditState& operator=(const EditState&) = delete;

  /// While one of these lives, changes are code filling the controls and do not count. Guards may
  /// nest.
  class Loading {
   public:
    explicit Loading(EditState& state) : state_(state) { ++state_.guards_; }
    ~Loading() { --state_.guards_; }
    Loading(const Loading&) = delete;
    Loading& operator=(const Loading&) = delete;

   private:
    EditState& state_;
  };
  [[nodiscard]] Loading load() { return Loading(*this); }

  bool loading() const { return guards_ > 0; }
  bool changed() const { return changed_ != 0; }
  /// True when a change of one of these kinds was made.
  bool changed(Kinds kinds) const { return (changed_ & kinds) != 0; }

  /// A person changed something. Without effect while loading. The state says changed before the
  /// first change is announced. `kinds` of no bit counts as bit 0.
  void change(Kinds kinds = 1);
  /// The buffer and the item agree again.
  void clear() { changed_ = 0; }

 private:
  std::function<void()> firstChange_;
  int guards_ = 0;
  Kinds changed_ = 0;
};

} // namespace kelmar
