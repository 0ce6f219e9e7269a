#include "tests/support/silent_proxy.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <vector>

namespace qvn::test {
namespace {

sockaddr_in loopback(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  return address;
}

int newSocket() { return socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0); }

// False at the end of the connection.
bool passOn(int from, int to) {
  std::array<char, 65536> bytes;
  const ssize_t count = recv(from, bytes.data(), bytes.size(), 0);
  return count > 0 && send(to, bytes.data(), static_cast<std::size_t>(count), MSG_NOSIGNAL) == count;
}

}  // namespace

SilentProxy::SilentProxy(int serverPort)
    : serverPort_(serverPort), listener_(newSocket()), wake_(eventfd(0, EFD_CLOEXEC)) {
  sockaddr_in address = loopback(0);
  socklen_t size = sizeof address;
  auto* const generic = reinterpret_cast<sockaddr*>(&address);
  if (bind(listener_, generic, size) != 0 || listen(listener_, 8) != 0 || getsockname(listener_, generic, &size) != 0) {
    throw std::runtime_error("no listening socket");
  }
  port_ = ntohs(address.sin_port);
  thread_ = std::thread([this] { run(); });
}

SilentProxy::~SilentProxy() {
  cut();
  close(wake_);
  close(listener_);
}

void SilentProxy::cut() {
  if (!thread_.joinable()) return;
  eventfd_write(wake_, 1);
  thread_.join();
}

void SilentProxy::run() {
  // Behind the first two, each connection's two ends stand side by side, the client's first.
  std::vector<pollfd> ends{{wake_, POLLIN, 0}, {listener_, POLLIN, 0}};
  std::size_t held = 0;
  while (poll(ends.data(), ends.size(), -1) >= 0 && ends[0].revents == 0) {
    for (std::size_t i = 2; i < ends.size(); ++i) {
      if (ends[i].revents == 0) continue;
      if (i % 2 != 0 && holdsNext_.exchange(false)) {
        held = i;
        ends[i].events = 0;
        continue;
      }
      // What comes to a silent proxy is left in its socket.
      if (!isSilent_ && passOn(ends[i].fd, ends[i ^ 1U].fd)) continue;
      ends[i].events = 0;
      if (!isSilent_) shutdown(ends[i ^ 1U].fd, SHUT_WR);
      if (held == 0 || i % 2 != 0) continue;
      passOn(ends[held].fd, ends[held ^ 1U].fd);
      for (const std::size_t end : {held, held ^ 1U}) shutdown(ends[end].fd, SHUT_RDWR);
      held = 0;
    }
    if (ends[1].revents == 0) continue;
    const int client = accept(listener_, nullptr, nullptr);
    const int server = newSocket();
    const sockaddr_in address = loopback(serverPort_);
    connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    ends.push_back({client, POLLIN, 0});
    ends.push_back({server, POLLIN, 0});
  }
  for (std::size_t i = 2; i < ends.size(); ++i) close(ends[i].fd);
}

}  // namespace qvn::test
