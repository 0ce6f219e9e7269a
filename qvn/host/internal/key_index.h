// Finds an entry by its key: one flat table, because collections of a few items are made for every record that is read.
#pragma once

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "qvn/base/letter_case.h"

namespace qvn::host::internal {

/// An Entry has a `key` that does not change while it is in the index. The index does not own its entries. Keys are
/// compared without regard to case.
template <typename Entry>
class KeyIndex {
 public:
  /// Null when there is none.
  [[nodiscard]] Entry* find(std::string_view key) const {
    if (slots_.empty()) return nullptr;
    return slots_[placeOf(key, hashIgnoringCase(key))].entry;
  }

  /// Where a key is or would be; good until the index changes.
  struct Place {
    std::size_t hash;
    std::size_t at;
  };
  /// Makes room for one more key first.
  [[nodiscard]] Place placeToAdd(std::string_view key) {
    if (2 * (count_ + 1) > slots_.size()) grow();
    const std::size_t hash = hashIgnoringCase(key);
    return {hash, placeOf(key, hash)};
  }
  [[nodiscard]] bool isTaken(Place place) const { return slots_[place.at].entry != nullptr; }
  /// The place must not be taken.
  void add(Entry& entry, Place place) {
    slots_[place.at] = {place.hash, &entry};
    ++count_;
  }

  /// The entry must be there.
  void remove(const Entry& entry) {
    std::size_t hole = placeOf(entry.key, hashIgnoringCase(entry.key));
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

  [[nodiscard]] std::size_t next(std::size_t at) const { return (at + 1) & (slots_.size() - 1); }

  // Where the key stands, or else the empty place where it belongs.
  [[nodiscard]] std::size_t placeOf(std::string_view key, std::size_t hash) const {
    std::size_t at = hash & (slots_.size() - 1);
    while (slots_[at].entry != nullptr && !(slots_[at].hash == hash && equalIgnoringCase(slots_[at].entry->key, key))) {
      at = next(at);
    }
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
