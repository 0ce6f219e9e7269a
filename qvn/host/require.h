// Objects that an operation cannot do without.
#pragma once

#include <memory>

#include "qvn/base/runtime_error.h"
#include "qvn/base/variant.h"

namespace qvn::host {

/// `object` itself. Throws RuntimeError 91 when it is null.
template <typename T>
const std::shared_ptr<T>& required(const std::shared_ptr<T>& object) {
  if (!object) throw RuntimeError(error_number::kObjectNotSet);
  return object;
}

/// The T that a value holds. Throws RuntimeError 13 when it holds something else.
template <typename T>
T& objectIn(const Variant& value) {
  const auto* const object = value.getIf<ObjectPtr>();
  auto* const wanted = object == nullptr ? nullptr : dynamic_cast<T*>(object->get());
  if (wanted == nullptr) throw RuntimeError(error_number::kTypeMismatch);
  return *wanted;
}

}  // namespace qvn::host
