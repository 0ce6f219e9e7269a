#include "qvn/text/internal/text_space.h"

#include "qvn/base/runtime_error.h"

namespace qvn::text::internal {

void requireTextSpace(std::size_t bytes) {
  if (bytes > kMostTextBytes) throw RuntimeError(error_number::kOutOfStringSpace);
}

}  // namespace qvn::text::internal
