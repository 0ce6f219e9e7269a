#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include "qvn/data/drivers/mysql/keep_alive.h"

namespace qvn::data::mysql {
namespace {

constexpr int kSilentSeconds = 15;  // before the first question
constexpr int kSecondsBetween = 5;
constexpr int kQuestions = 3;

}  // namespace

void keepAlive(int socket) noexcept {
  const auto set = [socket](int level, int option, int value) {
    setsockopt(socket, level, option, &value, sizeof value);
  };
  set(SOL_SOCKET, SO_KEEPALIVE, 1);
  set(IPPROTO_TCP, TCP_KEEPIDLE, kSilentSeconds);
  set(IPPROTO_TCP, TCP_KEEPINTVL, kSecondsBetween);
  set(IPPROTO_TCP, TCP_KEEPCNT, kQuestions);
}

}  // namespace qvn::data::mysql
