// The network interfaces of the station, as far as the connection probes look at them.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace qvn::core {

struct NetworkLink {
  std::string name;
  bool isUp = false;            ///< switched on
  bool isRunning = false;       ///< the line carries data: the cable is in, the call is answered
  bool isLoopback = false;      ///< leads back to this station
  bool isPointToPoint = false;  ///< one peer at the other end: dial-up lines and tunnels
  bool hasAddress = false;      ///< an internet address that another station gave, not one that the link gave itself
};

class NetworkLinks {
 public:
  virtual ~NetworkLinks() = default;
  /// Every interface once, as it is at this moment; nothing when the system refused to list them.
  virtual std::optional<std::vector<NetworkLink>> list() = 0;
};

/// The interfaces of this station.
std::shared_ptr<NetworkLinks> systemNetworkLinks();

}  // namespace qvn::core
