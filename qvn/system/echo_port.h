// Asking a host on the network for an echo (ICMP, RFC 792).
//
//   const EchoResult result = systemEcho()->echo({.address = {127, 0, 0, 1}, .payload = "hola", .timeToLive = 255,
//                                                 .timeout = std::chrono::seconds(2)});
//   if (result.reply && result.reply->status == 0) ...
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "qvn/system/ipv4_address.h"

namespace qvn::system {

struct EchoRequest {
  Ipv4Address address;
  std::string_view payload;
  std::uint8_t timeToLive;
  std::chrono::milliseconds timeout;
  /// Asked about ten times a second while the reply is awaited; true ends the wait as silence does.
  std::function<bool()> isAbandoned = {};
};

struct EchoReply {
  std::uint32_t status;  ///< 0 for the echo; otherwise a number of icmp status, such as 11003 "host unreachable"
  std::chrono::microseconds roundTrip;
};

struct EchoResult {
  std::optional<EchoReply> reply;  ///< nothing when no answer came in time, or nothing was sent
  int systemError = 0;             ///< `errno` of what kept the request from being sent, 0 when it was sent;
                                   ///< EPERM when this process may not use ICMP
};

class EchoPort {
 public:
  virtual ~EchoPort() = default;
  /// Sends one request and waits for its reply, or for a router's word that it cannot be delivered. Other traffic
  /// neither answers nor prolongs the wait. Broadcast addresses are refused. Never throws for what the network does.
  /// One port serves one thread at a time.
  virtual EchoResult echo(const EchoRequest& request) = 0;
};

/// This machine's network. A process may use it when one of its groups is within the system's
/// `net.ipv4.ping_group_range`, or when it has the capability CAP_NET_RAW; otherwise nothing is ever sent.
std::shared_ptr<EchoPort> systemEcho();

}  // namespace qvn::system
