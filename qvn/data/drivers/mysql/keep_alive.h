// Connections whose other end has vanished.
#pragma once

namespace qvn::data::mysql {

/// Has the system ask a silent peer of a TCP connection whether it is still there, so that a server that was switched
/// off or cut off between two rows is noticed within half a minute. A server that is only slow answers such questions.
/// What is no TCP connection is left alone.
void keepAlive(int socket) noexcept;

}  // namespace qvn::data::mysql
