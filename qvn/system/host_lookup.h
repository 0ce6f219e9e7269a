// Finding the address of a host by its name.
//
//   if (const auto address = systemHostLookup()->addressOf("caja2")) ...
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "qvn/system/ipv4_address.h"

namespace qvn::system {

class HostLookup {
 public:
  virtual ~HostLookup() = default;
  /// The host's first IPv4 address, nothing when it has none or nobody knows it. A dotted address is its own; the empty
  /// name has none. Waits for the network as long as the system does.
  virtual std::optional<Ipv4Address> addressOf(const std::string& name) = 0;
};

/// What this machine is set up to ask: its file of hosts, its name servers.
std::shared_ptr<HostLookup> systemHostLookup();

}  // namespace qvn::system
