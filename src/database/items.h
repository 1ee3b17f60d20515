// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/failure.h"
#include "base/name_index.h"
#include "base/text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kelmar {

/// The folded form of a key, made on the stack for the usual short ASCII name.
class FoldedKey {
 public:
  explicit FoldedKey(std::string_view key);
  std::string_view view() const { return view_; }

 private:
  char buffer_[128];
  std::string long_;
  std::string_view view_;
};

/// The folded key of a member: one block of just its size, or nothing. Its text stays where it is
/// when the key is moved.
class StoredKey {
 public:
  StoredKey() = default;
  explicit StoredKey(std::string_view text) : bytes_(new char[headSize + text.size()]) {
    const std::size_t size = text.size();
    std::memcpy(bytes_.get(), &size, headSize);
    text.copy(bytes_.get() + headSize, size);
  }
  explicit operator bool() const { return bytes_ != nullptr; }
  /// There must be a key.
  std::string_view view() const {
    std::size_t size = 0;
    std::memcpy(&size, bytes_.get(), headSize);
    return {bytes_.get() + headSize, size};
  }

 private:
  static constexpr std::size_t headSize = sizeof(std::size_t);
  std::unique_ptr<char[]> bytes_;
};

/// Key of a named item in a collection that keys by name: "k" + name, made on the stack where the
/// name is not long.
class NameKey {
 public:
  explicit NameKey(std::string_view name) {
    if (name.size() < sizeof buffer_) {
      buffer_[0] = 'k';
      view_ = {buffer_, name.copy(buffer_ + 1, name.size()) + 1};
    } else {
      long_ = "k" + std::string(name);
      view_ = long_;
    }
  }
  NameKey(const NameKey&) = delete;
  NameKey& operator=(const NameKey&) = delete;
  operator std::string_view() const { return view_; } // it is one

 private:
  char buffer_[128];
  std::string long_;
  std::string_view view_;
};
inline NameKey keyOfName(std::string_view name) {
  return NameKey(name);
}

/// The ordered keyed collection behind every `...Items` class: 1-based positions, optional keys
/// that are compared without regard to case (Unicode case folding), key lookup in constant time.
///
/// The collection owns its members; whoever needs a member beyond its stay shares it (`shared`).
/// Members must not be added or removed while iterating; `members()` gives a copy for that.
template <class T>
class Items {
  struct Entry;

 public:
  using Pointer = std::shared_ptr<T>;

  Items() = default;
  Items(const Items&) = delete;
  Items& operator=(const Items&) = delete;
  ~Items() = default;

  int Count() const { return static_cast<int>(entries_.size()); }

  /// By position, 1..Count. Raises SubscriptOutOfRange.
  T* Item(int position) const {
    if (position < 1 || position > Count()) throw platformFailure(SubscriptOutOfRange);
    return entries_[position - 1].item.get();
  }
  /// By key. Raises SubscriptOutOfRange when absent.
  T* Item(std::string_view key) const {
    if (T* found = findKey(key)) return found;
    throw platformFailure(SubscriptOutOfRange);
  }
  /// By key, none when absent. Never fails.
  T* findKey(std::string_view key) const {
    return hasKeys_ ? findFolded(FoldedKey(key).view()) : nullptr;
  }

  /// Position of this very object, 0 when it is not a member.
  int indexOf(const T* item) const {
    for (std::size_t i = 0; i < entries_.size(); ++i)
      if (entries_[i].item.get() == item) return static_cast<int>(i) + 1;
    return 0;
  }
  Pointer shared(const T* item) const {
    const int position = indexOf(item);
    return position == 0 ? nullptr : entries_[position - 1].item;
  }
  std::vector<Pointer> members() const {
    std::vector<Pointer> copy;
    copy.reserve(entries_.size());
    for (const Entry& entry : entries_)
      copy.push_back(entry.item);
    return copy;
  }

  /// Raises SubscriptOutOfRange.
  void Remove(int position) { take(position); }
  /// Removes the member and hands it out. Raises SubscriptOutOfRange.
  Pointer take(int position) {
    if (position < 1 || position > Count()) throw platformFailure(SubscriptOutOfRange);
    Entry entry = std::move(entries_[position - 1]);
    dropKey(entry);
    entries_.erase(entries_.begin() + (position - 1));
    return std::move(entry.item);
  }
  /// Clears and removes this very object; nothing when it is not a member.
  void deleteItem(const T* item) {
    if (const int position = indexOf(item); position != 0) take(position)->clear();
  }
  /// Clears and removes all members that answer true, in one pass.
  template <class Predicate>
  void deleteIf(Predicate predicate) {
    auto keep = entries_.begin();
    for (auto entry = entries_.begin(); entry != entries_.end(); ++entry) {
      if (predicate(*entry->item)) {
        dropKey(*entry);
        entry->item->clear();
      } else {
        if (keep != entry) *keep = std::move(*entry);
        ++keep;
      }
    }
    entries_.erase(keep, entries_.end());
  }
  /// Clears and removes all members, from the front.
  void clear() {
    for (const Entry& entry : entries_)
      entry.item->clear();
    index_.reset();
    hasKeys_ = false;
    entries_.clear();
  }

  /// The keys, folded, in no order.
  template <class Visit>
  void forEachKey(Visit visit) const {
    for (const Entry& entry : entries_)
      if (entry.key) visit(entry.key.view());
  }

  class Iterator {
   public:
    using difference_type = std::ptrdiff_t;
    using value_type = T*;
    explicit Iterator(const typename std::vector<Entry>::const_iterator& at) : at_(at) {}
    T* operator*() const { return at_->item.get(); }
    Iterator& operator++() {
      ++at_;
      return *this;
    }
    bool operator==(const Iterator& other) const { return at_ == other.at_; }
    bool operator!=(const Iterator& other) const { return at_ != other.at_; }

   private:
    typename std::vector<Entry>::const_iterator at_;
  };
  Iterator begin() const { return Iterator(entries_.begin()); }
  Iterator end() const { return Iterator(entries_.end()); }

 protected:
  T* append(Pointer item) { return place(entries_.size(), Entry{std::move(item), {}}); }
  /// Raises KeyExists and adds nothing when the key is taken.
  T* append(Pointer item, std::string_view key) {
    return insertKeyed(entries_.size(), std::move(item), key);
  }
  /// In front of the member at `position`, 1..Count. Raises KeyExists.
  T* insertBefore(int position, Pointer item, std::string_view key) {
    return insertKeyed(static_cast<std::size_t>(position - 1), std::move(item), key);
  }
  T* insertBefore(int position, Pointer item) {
    return place(static_cast<std::size_t>(position - 1), Entry{std::move(item), {}});
  }
  /// Renews the order of the members.
  template <class Less>
  void stableSort(Less less) {
    std::stable_sort(entries_.begin(), entries_.end(), [&](const Entry& left, const Entry& right) {
      return less(*left.item, *right.item);
    });
  }
  void swapPositions(int left, int right) { std::swap(entries_[left - 1], entries_[right - 1]); }

 private:
  struct Entry {
    Pointer item;
    StoredKey key; // empty for a member without one
  };

  /// Up to so many members a look at each is as fast as an index, and there are very many small
  /// collections.
  static constexpr std::size_t withoutIndex = 8;

  T* findFolded(std::string_view key) const {
    if (index_) {
      T* const* found = index_->find(key);
      return found ? *found : nullptr;
    }
    for (const Entry& entry : entries_)
      if (entry.key && entry.key.view() == key) return entry.item.get();
    return nullptr;
  }
  T* insertKeyed(std::size_t at, Pointer item, std::string_view key) {
    const FoldedKey folded(key);
    if (findFolded(folded.view())) throw platformFailure(KeyExists);
    hasKeys_ = true;
    return place(at, Entry{std::move(item), StoredKey(folded.view())});
  }
  T* place(std::size_t at, Entry entry) {
    const auto placed =
        entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(at), std::move(entry));
    if (index_) {
      if (placed->key) index_->insert(placed->key.view(), placed->item.get());
    } else if (hasKeys_ && entries_.size() > withoutIndex) {
      index_ = std::make_unique<NameIndex<T*>>();
      for (const Entry& each : entries_)
        if (each.key) index_->insert(each.key.view(), each.item.get());
    }
    return placed->item.get();
  }
  void dropKey(const Entry& entry) {
    if (index_ && entry.key) index_->erase(entry.key.view());
  }

  std::vector<Entry> entries_;
  std::unique_ptr<NameIndex<T*>> index_; // of the keys in entries_
  bool hasKeys_ = false;
};

/// Position behind which a rough insertion puts a member: the last one that sorts after it, found
/// by a scan without early exit, 0 when there is none. The lists are kept roughly ordered by this
/// rule, not strictly: (a, c, d) receiving b becomes (a, c, b, d).
template <class Collection, class After>
int roughPosition(const Collection& items, After after) {
  int position = 0, index = 0;
  for (auto* item : items) {
    ++index;
    if (after(*item)) position = index;
  }
  return position;
}

} // namespace kelmar
