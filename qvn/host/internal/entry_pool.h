// Memory for entries in blocks: collections of a few items are made for every record that is read.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace qvn::host::internal {

/// Gives default-made entries that stay where they are. What is given back is made anew before it is given again; all
/// memory goes with the pool.
template <typename Entry>
class EntryPool {
 public:
  Entry& take() {
    if (free_.empty()) addBlock();
    Entry& entry = *free_.back();
    free_.pop_back();
    return entry;
  }

  void giveBack(Entry& entry) {
    entry = Entry();
    free_.push_back(&entry);
  }

 private:
  void addBlock() {
    constexpr std::size_t kFirst = 8;
    constexpr std::size_t kLargest = 1024;
    const std::size_t size = blocks_.empty() ? kFirst : std::min(2 * lastSize_, kLargest);
    free_.reserve(free_.size() + size);
    std::vector<Entry>& block = blocks_.emplace_back(size);
    for (std::size_t i = size; i > 0; --i) free_.push_back(&block[i - 1]);
    lastSize_ = size;
  }

  std::vector<std::vector<Entry>> blocks_;  // none of them grows
  std::size_t lastSize_ = 0;
  std::vector<Entry*> free_;
};

}  // namespace qvn::host::internal
