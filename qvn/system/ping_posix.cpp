#include <arpa/inet.h>

#include <bit>

#include "qvn/system/ping.h"

namespace qvn::system {

std::int32_t Ping::IP2Long(std::string_view strAddress) {
  return std::bit_cast<std::int32_t>(inet_addr(std::string(strAddress).c_str()));
}

}  // namespace qvn::system
