// How long a text may become.
#pragma once

#include <cstddef>

namespace qvn::text::internal {

/// The longest text that a function here makes, in bytes. A width beyond it is a slip of the caller, and a failed
/// allocation would end the host instead of the call.
inline constexpr std::size_t kMostTextBytes = std::size_t{1} << 30U;

/// Throws RuntimeError 14 when a text of `bytes` is too long.
void requireTextSpace(std::size_t bytes);

}  // namespace qvn::text::internal
