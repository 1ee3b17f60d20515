// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace kelmar {

/// From names to values, compared byte for byte. The names are not copied: whoever adds one keeps
/// its bytes where they are until it is erased. Made for hundreds of thousands of names, where a
/// table of nodes would spend its time waiting for memory: a look-up touches one slot and the name.
template <class Value>
class NameIndex {
 public:
  std::size_t size() const { return used_; }

  Value* find(std::string_view name) {
    const std::size_t at = locate(name, hashOf(name));
    return at == nowhere ? nullptr : &slots_[at].value;
  }
  const Value* find(std::string_view name) const {
    const std::size_t at = locate(name, hashOf(name));
    return at == nowhere ? nullptr : &slots_[at].value;
  }
  bool contains(std::string_view name) const { return find(name) != nullptr; }

  /// False, and nothing is added, when the name is there already.
  bool insert(std::string_view name, Value value) {
    if ((used_ + 1) * 4 > slots_.size() * 3) grow();
    const std::uint32_t hash = hashOf(name);
    std::size_t at = hash & mask();
    for (; slots_[at].name; at = (at + 1) & mask())
      if (slots_[at].holds(name, hash)) return false;
    slots_[at] = {name.data() ? name.data() : "", static_cast<std::uint32_t>(name.size()), hash,
                  value};
    ++used_;
    return true;
  }

  void erase(std::string_view name) {
    std::size_t hole = locate(name, hashOf(name));
    if (hole == nowhere) return;
    --used_;
    // Whatever probed past the hole moves back into it.
    for (std::size_t at = (hole + 1) & mask(); slots_[at].name; at = (at + 1) & mask()) {
      const std::size_t home = slots_[at].hash & mask();
      if (((at - home) & mask()) < ((at - hole) & mask())) continue;
      slots_[hole] = slots_[at];
      hole = at;
    }
    slots_[hole] = {};
  }

  void clear() {
    slots_.clear();
    used_ = 0;
  }

 private:
  struct Slot {
    const char* name = nullptr; // none: the slot is free
    std::uint32_t size = 0;
    std::uint32_t hash = 0;
    Value value{};
    bool holds(std::string_view other, std::uint32_t otherHash) const {
      return hash == otherHash && std::string_view(name, size) == other;
    }
  };
  static constexpr std::size_t nowhere = ~std::size_t(0);

  static std::uint32_t hashOf(std::string_view name) {
    const std::size_t hash = std::hash<std::string_view>()(name);
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
  }
  std::size_t mask() const { return slots_.size() - 1; }
  std::size_t locate(std::string_view name, std::uint32_t hash) const {
    if (slots_.empty()) return nowhere;
    for (std::size_t at = hash & mask(); slots_[at].name; at = (at + 1) & mask())
      if (slots_[at].holds(name, hash)) return at;
    return nowhere;
  }
  void grow() {
    std::vector<Slot> old(slots_.empty() ? 8 : slots_.size() * 2);
    old.swap(slots_);
    for (const Slot& slot : old) {
      if (!slot.name) continue;
      std::size_t at = slot.hash & mask();
      while (slots_[at].name)
        at = (at + 1) & mask();
      slots_[at] = slot;
    }
  }

  std::vector<Slot> slots_; // a power of two
  std::size_t used_ = 0;
};

} // namespace kelmar
