#include "qvn/host/collection.h"

#include <algorithm>
#include <utility>

#include "qvn/base/runtime_error.h"

namespace qvn::host {
namespace {

std::size_t checkedOffset(const Variant& position, std::size_t count) {
  const std::int32_t number = position.toLong();
  if (number < 1 || static_cast<std::size_t>(number) > count) throw RuntimeError(error_number::kSubscriptOutOfRange);
  return static_cast<std::size_t>(number) - 1;
}

}  // namespace

void Collection::Add(Variant value, std::string_view key) { insert(std::move(value), key, entries_.size()); }

void Collection::Add(Variant value, std::string_view key, const Variant& before, const Variant& after) {
  if (!before.isEmpty() && !after.isEmpty()) throw RuntimeError(error_number::kInvalidCall);
  const std::size_t offset = !before.isEmpty()  ? offsetOf(before)
                             : !after.isEmpty() ? offsetOf(after) + 1
                                                : entries_.size();
  insert(std::move(value), key, offset);
}

void Collection::insert(Variant&& value, std::string_view key, std::size_t offset) {
  if (key.empty()) {
    link(pool_.take(std::move(value), key), offset);
    return;
  }
  const auto place = keys_.placeToAdd(key);
  if (keys_.isTaken(place)) throw RuntimeError(error_number::kDuplicateKey);
  Entry& added = pool_.take(std::move(value), key);
  link(added, offset);
  keys_.add(added, place);
}

void Collection::link(Entry& added, std::size_t offset) {
  if (offset == entries_.size()) {
    entries_.push_back(&added);
  } else {
    entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(offset), &added);
  }
}

Variant& Collection::Item(const Variant& indexOrKey) { return find(indexOrKey).value; }
const Variant& Collection::Item(const Variant& indexOrKey) const { return find(indexOrKey).value; }

void Collection::Remove(const Variant& indexOrKey) {
  const auto at = entries_.begin() + static_cast<std::ptrdiff_t>(offsetOf(indexOrKey));
  Entry& removed = **at;
  if (!removed.key.empty()) keys_.remove(removed);
  entries_.erase(at);
  pool_.giveBack(removed);
}

Collection::Entry& Collection::find(const Variant& indexOrKey) const {
  if (const auto* key = indexOrKey.getIf<std::string>()) return findKey(*key);
  return *entries_[checkedOffset(indexOrKey, entries_.size())];
}

Collection::Entry& Collection::findKey(std::string_view key) const {
  Entry* const found = keys_.find(key);
  if (found == nullptr) throw RuntimeError(error_number::kInvalidCall);
  return *found;
}

std::size_t Collection::offsetOf(const Variant& indexOrKey) const {
  const auto* key = indexOrKey.getIf<std::string>();
  if (key == nullptr) return checkedOffset(indexOrKey, entries_.size());
  const Entry* entry = &findKey(*key);
  const auto at = std::ranges::find(entries_, entry);
  return static_cast<std::size_t>(at - entries_.begin());
}

}  // namespace qvn::host
