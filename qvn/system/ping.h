// Asks whether a host answers on the network.
//
//   Ping ping;
//   ping.onPingOK([](std::int32_t& poSpeed) { std::cout << poSpeed << " ms\n"; });
//   ping.onPingError([](std::string_view peErrDescription) { std::cerr << peErrDescription << "\n"; });
//   const bool isThere = ping.DoPing("caja2");
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "qvn/base/variant.h"
#include "qvn/system/echo_port.h"
#include "qvn/system/host_lookup.h"

namespace qvn::system {

/// Sends ICMP echo requests, one per call, in the thread of the caller; IPv4 only. The request carries the 24 bytes
/// "Echo this string of data", a time to live of 255, and is waited for 10 seconds.
class Ping final : public Object {
 public:
  /// The longest name of a host.
  static constexpr std::size_t kHostCharacters = 64;
  /// What stands for the address of a host that has none.
  static constexpr std::string_view kNoAddress = "No IP";

  using OkListener = std::function<void(std::int32_t& poSpeed)>;
  using ErrorListener = std::function<void(std::string_view peErrDescription)>;

  explicit Ping(std::shared_ptr<EchoPort> echo = systemEcho(), std::shared_ptr<HostLookup> hosts = systemHostLookup());

  /// The event `PingError`: an echo failed, with the text that says so.
  void onPingError(ErrorListener listener) { pingError_ = std::move(listener); }
  /// The event `PingOK`: a reply came, `poSpeed` milliseconds after the request. What the listener stores there is
  /// lost.
  void onPingOK(OkListener listener) { pingOK_ = std::move(listener); }

  /// True when the host, a name or a dotted address, answered. Exactly one event is raised before the call comes back:
  ///
  /// - `PingOK` with the round trip in whole milliseconds, rounded down;
  /// - `PingError` "Ping failed to complete, error = 11003" when the answer was a router's refusal; the numbers are in
  ///   docs/ping.md;
  /// - `PingError` "Ping failed, error = 0" when nothing came in time or nothing could be sent. A name without address
  /// is
  ///   one of these cases.
  ///
  /// The address is in lastIP afterwards. What a listener throws ends the call.
  ///
  /// @throws RuntimeError  5 when `HostAddress` has more than 64 characters; nothing is sent, no event is raised
  bool DoPing(std::string_view HostAddress);

  /// The address as an integer whose bytes in memory are those of the dotted text; -1 for a text that is no address,
  /// and for 255.255.255.255. Reads what the system's parser reads: "127.1" and hexadecimal parts, too.
  [[nodiscard]] static std::int32_t IP2Long(std::string_view strAddress);

  /// The host's first IPv4 address as dotted text, "No IP" when there is none; lastIP then holds the same.
  ///
  /// @param Host  written back: filled up with NUL characters to 64 characters. What follows its first NUL is not part
  ///              of the name, so that it can be passed again
  /// @throws RuntimeError  5 when it has more than 64 characters; nothing is changed
  std::string pingGetHostByName(std::string& Host);

  /// What pingGetHostByName gave last; empty before its first call.
  [[nodiscard]] const std::string& lastIP() const { return lastIP_; }

  /// For hosts that ask about an echo in the background: there is none, so it is always false.
  [[nodiscard]] static bool IsHostSyncRunning() { return false; }

 private:
  bool fail(std::string_view description);

  std::shared_ptr<EchoPort> echo_;
  std::shared_ptr<HostLookup> hosts_;
  std::string lastIP_;
  OkListener pingOK_;
  ErrorListener pingError_;
};

}  // namespace qvn::system
