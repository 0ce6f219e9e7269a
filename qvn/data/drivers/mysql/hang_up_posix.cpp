#include <poll.h>

#include "qvn/data/drivers/mysql/hang_up.h"

namespace qvn::data::mysql {

bool hasHungUp(int socket) noexcept {
  if (socket < 0) return true;
  pollfd end{socket, POLLRDHUP, 0};
  return poll(&end, 1, 0) > 0;
}

}  // namespace qvn::data::mysql
