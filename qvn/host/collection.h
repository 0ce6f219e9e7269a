// The platform's collection: values in order, some of them with a key.
//
//   Collection values;
//   values.Add("Ana", "nombre");  values.Add(7);
//   values.Item("NOMBRE").toText() == "Ana";  values.Item(2).toLong() == 7
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "qvn/base/variant.h"
#include "qvn/host/internal/entry_pool.h"
#include "qvn/host/internal/key_index.h"

namespace qvn::host {

/// Positions count from 1. Keys are compared without regard to case. An item is named by a position or a key: text is a
/// key, also when it consists of digits; any other value is read as a position.
///
/// References to values stay valid until their item is removed; iterators until the next Add or Remove.
class Collection final : public Object {
  struct Entry {
    Entry() = default;
    Entry(Variant&& itsValue, std::string_view itsKey) : value(std::move(itsValue)), key(itsKey) {}

    Variant value;
    std::string key;  // as it was given; "" when there is none
  };
  using Entries = std::deque<Entry*>;

 public:
  /// Walks the values in order.
  class Iterator {
   public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = Variant;
    using difference_type = std::ptrdiff_t;
    using pointer = const Variant*;
    using reference = const Variant&;

    Iterator() = default;
    explicit Iterator(const Entries::const_iterator& at) : at_(at) {}

    reference operator*() const { return (*at_)->value; }
    pointer operator->() const { return &(*at_)->value; }
    Iterator& operator++() {
      ++at_;
      return *this;
    }
    Iterator operator++(int) { return Iterator(at_++); }
    friend bool operator==(const Iterator& left, const Iterator& right) { return left.at_ == right.at_; }

   private:
    Entries::const_iterator at_;
  };

  /// Adds a value at the end, or in front of the item `before`, or behind the item `after`. An empty `key` is none.
  /// A failure leaves the collection as it was.
  ///
  /// @throws RuntimeError  457 when the key is taken; 5 when both `before` and `after` are given; as Item for the item
  ///                       that they name
  void Add(Variant value, std::string_view key, const Variant& before, const Variant& after = {});
  void Add(Variant value, std::string_view key = {});

  /// The value of an item, which may be assigned to.
  ///
  /// @throws RuntimeError  9 for a position outside 1 to Count, 5 for an unknown key, 94 for Null, 13 for an array or
  ///                       an object
  [[nodiscard]] Variant& Item(const Variant& indexOrKey);
  [[nodiscard]] const Variant& Item(const Variant& indexOrKey) const;

  /// Takes an item out; those behind it move up. Throws as Item.
  void Remove(const Variant& indexOrKey);

  [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(entries_.size()); }

  [[nodiscard]] Iterator begin() const { return Iterator(entries_.begin()); }
  [[nodiscard]] Iterator end() const { return Iterator(entries_.end()); }

 private:
  void insert(Variant&& value, std::string_view key, std::size_t offset);
  void link(Entry& added, std::size_t offset);
  [[nodiscard]] Entry& find(const Variant& indexOrKey) const;
  [[nodiscard]] Entry& findKey(std::string_view key) const;
  [[nodiscard]] std::size_t offsetOf(const Variant& indexOrKey) const;

  internal::EntryPool<Entry> pool_;
  Entries entries_;
  internal::KeyIndex<Entry> keys_;
};

}  // namespace qvn::host
