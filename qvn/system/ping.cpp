#include "qvn/system/ping.h"

#include <bit>
#include <chrono>

#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"

namespace qvn::system {
namespace {

constexpr std::string_view kPayload = "Echo this string of data";
constexpr std::uint8_t kTimeToLive = 255;
constexpr std::chrono::seconds kTimeout{10};

std::string dotted(Ipv4Address address) {
  std::string text;
  for (const std::uint8_t byte : address) text += (text.empty() ? "" : ".") + std::to_string(byte);
  return text;
}

}  // namespace

Ping::Ping(std::shared_ptr<EchoPort> echo, std::shared_ptr<HostLookup> hosts)
    : echo_(std::move(echo)), hosts_(std::move(hosts)) {}

bool Ping::DoPing(std::string_view HostAddress) {
  std::string host(HostAddress);
  // The text for no address is read as 255.255.255.255, to which nothing is sent.
  const auto address = std::bit_cast<Ipv4Address>(IP2Long(pingGetHostByName(host)));
  const auto reply =
      echo_->echo({.address = address, .payload = kPayload, .timeToLive = kTimeToLive, .timeout = kTimeout}).reply;
  // Hosts compare the text: the number is that of a reply that nobody filled in.
  if (!reply) return fail("Ping failed, error = 0");
  if (reply->status != 0) return fail("Ping failed to complete, error = " + std::to_string(reply->status));
  auto speed = static_cast<std::int32_t>(std::chrono::floor<std::chrono::milliseconds>(reply->roundTrip).count());
  if (pingOK_) pingOK_(speed);
  return true;
}

std::string Ping::pingGetHostByName(std::string& Host) {
  const std::size_t characters = utf8::length(Host);
  if (characters > kHostCharacters) throw RuntimeError(error_number::kInvalidCall);
  Host.append(kHostCharacters - characters, '\0');
  const auto address = hosts_->addressOf(Host.substr(0, Host.find('\0')));
  lastIP_ = address ? dotted(*address) : std::string(kNoAddress);
  return lastIP_;
}

bool Ping::fail(std::string_view description) {
  if (pingError_) pingError_(description);
  return false;
}

}  // namespace qvn::system
