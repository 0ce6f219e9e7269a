// Objects that an operation cannot do without.
#pragma once

#include <memory>

#include "qvn/base/runtime_error.h"

namespace qvn::host {

/// `object` itself. Throws RuntimeError 91 when it is null.
template <typename T>
const std::shared_ptr<T>& required(const std::shared_ptr<T>& object) {
  if (!object) throw RuntimeError(error_number::kObjectNotSet);
  return object;
}

}  // namespace qvn::host
