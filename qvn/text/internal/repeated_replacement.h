// Replacing a text again and again until it is gone, without starting over each time.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qvn::text::internal {

/// The texts that replaced ones may grow by, past what one replacement for each occurrence explains, in bytes.
inline constexpr std::size_t kGrowthLimit = std::size_t{64} << 20U;

/// What is left of `target` after replacing its first occurrence of `searched`, without regard to case, by `inserted`
/// until there is none. An inserted text may form new occurrences together with what stands around it.
///
/// `searched` must not be empty and `inserted` must not contain it. Takes time linear in the target and in all that is
/// inserted. Throws RuntimeError 5 when an `inserted` longer than `searched` keeps forming new occurrences and has
/// inserted about `growthLimit` bytes that way, 14 when the text passes 1 GiB.
std::string replaceUntilGone(std::string_view inserted, std::string_view searched, std::string_view target,
                             std::size_t growthLimit = kGrowthLimit);

}  // namespace qvn::text::internal
