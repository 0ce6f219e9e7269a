#include "qvn/automation/object_table.h"

#include "qvn/base/runtime_error.h"

namespace qvn::automation {
namespace {

[[noreturn]] void refuse(std::int64_t number) {
  throw RuntimeError(error_number::kObjectNotSet, "No hay un objeto " + std::to_string(number) + ", o ya se soltó");
}

}  // namespace

std::int64_t ObjectTable::numberOf(const ObjectPtr& object) {
  if (!object) throw RuntimeError(error_number::kObjectNotSet);
  const auto [entry, isNew] = numbers_.try_emplace(object.get(), last_ + 1);
  if (isNew) objects_.emplace(++last_, object);
  return entry->second;
}

const ObjectPtr& ObjectTable::at(std::int64_t number) const {
  const auto found = objects_.find(number);
  if (found == objects_.end()) refuse(number);
  return found->second;
}

std::int64_t ObjectTable::find(const Object* object) const noexcept {
  const auto found = numbers_.find(object);
  return found == numbers_.end() ? 0 : found->second;
}

void ObjectTable::release(std::int64_t number) {
  const auto found = objects_.find(number);
  if (found == objects_.end()) refuse(number);
  numbers_.erase(found->second.get());
  // The object goes after the table has forgotten it: its destructor may do anything.
  const ObjectPtr last = std::move(found->second);
  objects_.erase(found);
}

}  // namespace qvn::automation
