// A way to a server that can fail: go silent, so that connections stay open and nothing passes any more, be cut, or
// lose one connection right behind an answer.
#pragma once

#include <atomic>
#include <thread>

namespace qvn::test {

/// Passes what comes to a port of its own on to `serverPort`, both on loopback.
class SilentProxy {
 public:
  explicit SilentProxy(int serverPort);
  ~SilentProxy();
  SilentProxy(const SilentProxy&) = delete;
  SilentProxy& operator=(const SilentProxy&) = delete;

  [[nodiscard]] int port() const { return port_; }
  /// From now on nothing passes; new connections are taken and not answered.
  void goSilent() { isSilent_ = true; }
  /// The server's next answer is held until another connection has come and gone, as the one does that ends a statement
  /// whose time is up. It passes then, and the connection that it belongs to is lost.
  void holdNextAnswer() { holdsNext_ = true; }
  /// Closes all connections.
  void cut();

 private:
  void run();

  int serverPort_;
  int listener_;
  int port_ = 0;
  int wake_;  // readable once the proxy ends
  std::atomic<bool> isSilent_ = false;
  std::atomic<bool> holdsNext_ = false;
  std::thread thread_;
};

}  // namespace qvn::test
