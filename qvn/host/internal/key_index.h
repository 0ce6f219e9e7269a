// Finds an entry by its key: one flat table, because collections of a few items are made for every record that is read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "qvn/base/eight_bytes.h"

namespace qvn::host::internal {

/// An Entry has a `key` that does not change while it is in the index. The index does not own its entries.
template <typename Entry>
class KeyIndex {
 public:
  /// Null when there is none.
  [[nodiscard]] Entry* find(std::string_view key) const {
    if (slots_.empty()) return nullptr;
    return slots_[placeOf(key, hashOf(key))].entry;
  }

  /// False when its key is taken; the index is then as it was.
  [[nodiscard]] bool add(Entry& entry) {
    if (2 * (count_ + 1) > slots_.size()) grow();
    const std::size_t hash = hashOf(entry.key);
    Slot& slot = slots_[placeOf(entry.key, hash)];
    if (slot.entry != nullptr) return false;
    slot = {hash, &entry};
    ++count_;
    return true;
  }

  /// The entry must be there.
  void remove(const Entry& entry) {
    std::size_t hole = placeOf(entry.key, hashOf(entry.key));
    slots_[hole] = {};
    --count_;
    // What a full place pushed aside moves up, so that a search may go on ending at the first empty place.
    for (std::size_t at = next(hole); slots_[at].entry != nullptr; at = next(at)) place(std::exchange(slots_[at], {}));
  }

 private:
  struct Slot {
    std::size_t hash = 0;
    Entry* entry = nullptr;
  };

  // Multiplied and folded eight bytes at a time; keys are short, and the standard's own hash is a call away.
  static std::size_t hashOf(std::string_view key) {
    constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;  // 2 to the 64 by the golden ratio
    std::uint64_t hash = key.size() * kOdd;
    for (std::size_t at = 0; at < key.size(); at += eight_bytes::kSize) {
      hash = (hash ^ eight_bytes::load(key, at)) * kOdd;
      hash ^= hash >> 32;
    }
    return hash;
  }

  [[nodiscard]] std::size_t next(std::size_t at) const { return (at + 1) & (slots_.size() - 1); }

  // Where the key stands, or else the empty place where it belongs.
  [[nodiscard]] std::size_t placeOf(std::string_view key, std::size_t hash) const {
    std::size_t at = hash & (slots_.size() - 1);
    while (slots_[at].entry != nullptr && (slots_[at].hash != hash || slots_[at].entry->key != key)) at = next(at);
    return at;
  }

  void place(const Slot& slot) { slots_[placeOf(slot.entry->key, slot.hash)] = slot; }

  void grow() {
    constexpr std::size_t kFirstSize = 64;
    const std::vector<Slot> old =
        std::exchange(slots_, std::vector<Slot>(slots_.empty() ? kFirstSize : 2 * slots_.size()));
    for (const Slot& slot : old) {
      if (slot.entry != nullptr) place(slot);
    }
  }

  std::vector<Slot> slots_;  // a power of two of them, at most half of them taken
  std::size_t count_ = 0;
};

}  // namespace qvn::host::internal
