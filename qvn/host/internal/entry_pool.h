// Memory for entries in blocks: collections of a few items are made for every record that is read.
#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace qvn::host::internal {

/// Makes entries that stay where they are until they are given back; all memory goes with the pool.
template <typename Entry>
class EntryPool {
 public:
  template <typename... Arguments>
  Entry& take(Arguments&&... arguments) {
    if (!free_.empty()) {
      Entry& entry = *free_.back();
      entry = Entry(std::forward<Arguments>(arguments)...);
      free_.pop_back();
      return entry;
    }
    if (blocks_.empty() || blocks_.back().size() == blocks_.back().capacity()) addBlock();
    return blocks_.back().emplace_back(std::forward<Arguments>(arguments)...);
  }

  /// What the entry held ends here.
  void giveBack(Entry& entry) {
    entry = Entry();
    free_.push_back(&entry);
  }

 private:
  void addBlock() {
    constexpr std::size_t kFirst = 24;
    constexpr std::size_t kLargest = 1024;
    const std::size_t size = blocks_.empty() ? kFirst : std::min(2 * blocks_.back().capacity(), kLargest);
    blocks_.emplace_back().reserve(size);
  }

  std::vector<std::vector<Entry>> blocks_;  // none of them grows beyond what it reserved
  std::vector<Entry*> free_;
};

}  // namespace qvn::host::internal
