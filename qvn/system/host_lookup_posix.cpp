#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <bit>
#include <cstring>

#include "qvn/system/host_lookup.h"

namespace qvn::system {
namespace {

struct FreeAddresses {
  void operator()(addrinfo* first) const noexcept { freeaddrinfo(first); }
};

class SystemHostLookup final : public HostLookup {
 public:
  std::optional<Ipv4Address> addressOf(const std::string& name) override {
    addrinfo wanted{};
    wanted.ai_family = AF_INET;
    wanted.ai_socktype = SOCK_DGRAM;  // otherwise each address comes once per kind of socket
    addrinfo* first = nullptr;
    if (getaddrinfo(name.c_str(), nullptr, &wanted, &first) != 0) return std::nullopt;
    const std::unique_ptr<addrinfo, FreeAddresses> owner(first);
    sockaddr_in address{};
    std::memcpy(&address, first->ai_addr, sizeof address);
    return std::bit_cast<Ipv4Address>(address.sin_addr);
  }
};

}  // namespace

std::shared_ptr<HostLookup> systemHostLookup() { return std::make_shared<SystemHostLookup>(); }

}  // namespace qvn::system
