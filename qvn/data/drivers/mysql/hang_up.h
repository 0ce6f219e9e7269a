// Connections that the other end has closed.
#pragma once

namespace qvn::data::mysql {

/// True when the peer of an idle connection has closed it, or when there is no socket any more. Asks this system only:
/// a peer that vanished without a word looks alive.
bool hasHungUp(int socket) noexcept;

}  // namespace qvn::data::mysql
