// A network of a test's own, cut off from the machine's: what happens there touches nothing else, and needs no rights.
//
//   runInOwnNetwork(EchoSockets::Datagram, [] { EXPECT_TRUE(Ping().DoPing("127.0.0.1")); });
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>

namespace qvn::test {

/// The sockets that everyone there may send echoes with.
enum class EchoSockets { Datagram, None };

/// Runs `body` in a process of its own, in a network that has nothing but 127.0.0.0/8. The process has every right
/// there. Its failed expectations, and what it throws, fail this test, and so does a system that gives out no networks.
void runInOwnNetwork(EchoSockets sockets, const std::function<void()>& body);

/// Inside such a network: the system no longer answers echo requests by itself.
void stopAnsweringEchoes();

/// Inside such a network: this process and those that it starts may open no raw sockets any more.
void giveUpRawSockets();

/// Inside such a network: a router at the other end of a cable. Its address is 10.9.0.2, that of this end 10.9.0.1, and
/// the way to everywhere leads through the router.
class Router {
 public:
  Router();
  ~Router();
  Router(const Router&) = delete;
  Router& operator=(const Router&) = delete;

  /// Runs a line of the shell there.
  void run(const std::string& line) const;

 private:
  pid_t process_ = 0;  // stays in the router's network until its input ends
  int input_ = -1;
};

}  // namespace qvn::test
