#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>

#include <algorithm>
#include <cstring>

#include "qvn/core/network_link.h"

namespace qvn::core {
namespace {

struct FreeAddresses {
  void operator()(ifaddrs* addresses) const noexcept { freeifaddrs(addresses); }
};

// Link-local addresses (169.254.0.0/16 of RFC 3927, fe80::/10 of RFC 4291) are made up by the station itself.
bool isGivenAddress(const sockaddr* address) {
  if (address == nullptr) return false;
  if (address->sa_family == AF_INET) {
    sockaddr_in version4{};
    std::memcpy(&version4, address, sizeof version4);
    constexpr in_addr_t kLinkLocal = 0xA9FE0000;
    return (ntohl(version4.sin_addr.s_addr) & 0xFFFF0000) != kLinkLocal;
  }
  if (address->sa_family == AF_INET6) {
    sockaddr_in6 version6{};
    std::memcpy(&version6, address, sizeof version6);
    return !IN6_IS_ADDR_LINKLOCAL(&version6.sin6_addr);
  }
  return false;
}

NetworkLink linkOf(const ifaddrs& entry) {
  const auto has = [flags = entry.ifa_flags](unsigned int flag) { return (flags & flag) != 0; };
  return {.name = entry.ifa_name,
          .isUp = has(IFF_UP),
          .isRunning = has(IFF_RUNNING),
          .isLoopback = has(IFF_LOOPBACK),
          .isPointToPoint = has(IFF_POINTOPOINT),
          .hasAddress = isGivenAddress(entry.ifa_addr)};
}

class SystemNetworkLinks final : public NetworkLinks {
 public:
  std::optional<std::vector<NetworkLink>> list() override {
    ifaddrs* first = nullptr;
    if (getifaddrs(&first) != 0) return std::nullopt;
    const std::unique_ptr<ifaddrs, FreeAddresses> addresses(first);
    std::vector<NetworkLink> links;
    // The system gives one entry for each address of an interface.
    for (const ifaddrs* entry = addresses.get(); entry != nullptr; entry = entry->ifa_next) {
      NetworkLink link = linkOf(*entry);
      const auto known = std::ranges::find(links, link.name, &NetworkLink::name);
      if (known == links.end()) {
        links.push_back(std::move(link));
      } else {
        known->hasAddress = known->hasAddress || link.hasAddress;
      }
    }
    return links;
  }
};

}  // namespace

std::shared_ptr<NetworkLinks> systemNetworkLinks() { return std::make_shared<SystemNetworkLinks>(); }

}  // namespace qvn::core
