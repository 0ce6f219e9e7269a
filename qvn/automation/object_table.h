// The objects that a host in another language holds by number.
#pragma once

#include <cstdint>
#include <map>
#include <unordered_map>

#include "qvn/base/variant.h"

namespace qvn::automation {

/// Objects stay alive until they are released, or the table goes. Numbers count from 1 and are not given twice.
class ObjectTable {
 public:
  /// The number of an object, a new one when it is not in the table. Throws RuntimeError 91 for null.
  std::int64_t numberOf(const ObjectPtr& object);
  /// Throws RuntimeError 91 for a number that no object has.
  [[nodiscard]] const ObjectPtr& at(std::int64_t number) const;
  /// The number of an object that is in the table, else 0.
  [[nodiscard]] std::int64_t find(const Object* object) const noexcept;
  /// Drops an object. Throws RuntimeError 91 for a number that no object has.
  void release(std::int64_t number);
  [[nodiscard]] std::size_t size() const noexcept { return objects_.size(); }

 private:
  std::int64_t last_ = 0;
  std::map<std::int64_t, ObjectPtr> objects_;
  std::unordered_map<const Object*, std::int64_t> numbers_;
};

}  // namespace qvn::automation
