// A machine that answers echo requests as a test wants, right or wrong, late or never.
#pragma once

#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace qvn::test {

using PacketBytes = std::vector<std::uint8_t>;

struct Answer {
  PacketBytes message;                             ///< ICMP, as it goes out
  std::chrono::milliseconds pause{0};              ///< after the request, or after the answer before this one
  std::array<std::uint8_t, 4> from{127, 0, 0, 1};  ///< an address of the loopback
};

/// Takes the echo requests to 127.0.0.1 in a network of the test's own, where the system no longer answers them.
class EchoResponder {
 public:
  /// Gives the answers to a request, which is a whole IP packet. Called in a thread of the responder's.
  using Script = std::function<std::vector<Answer>(const PacketBytes& request)>;

  /// @param afterwards  called when the answers to a request have gone out
  explicit EchoResponder(
      Script script, std::function<void()> afterwards = [] {});
  ~EchoResponder();
  EchoResponder(const EchoResponder&) = delete;
  EchoResponder& operator=(const EchoResponder&) = delete;

  /// The requests that have come.
  [[nodiscard]] std::vector<PacketBytes> requests() const;

 private:
  void run();
  void answer(const Answer& answer) const;

  Script script_;
  std::function<void()> afterwards_;
  int socket_;
  mutable std::mutex mutex_;
  std::vector<PacketBytes> requests_;
  std::atomic<bool> isEnding_ = false;
  std::thread thread_;
};

/// The right reply to a request.
PacketBytes replyTo(const PacketBytes& request);
/// An ICMP error about a request, with the packet quoted as far as its first eight bytes of ICMP.
PacketBytes errorAbout(const PacketBytes& request, std::uint8_t type, std::uint8_t code);
/// The message with one bit of this byte changed, and its checksum right again.
PacketBytes withChange(PacketBytes message, std::size_t offset);
/// The message with its checksum made right.
PacketBytes withChecksum(PacketBytes message);

}  // namespace qvn::test
