// An IPv4 address as a value.
#pragma once

#include <array>
#include <cstdint>

namespace qvn::system {

/// The four bytes in network order: 127.0.0.1 is {127, 0, 0, 1}.
using Ipv4Address = std::array<std::uint8_t, 4>;

}  // namespace qvn::system
