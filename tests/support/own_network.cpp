#include "tests/support/own_network.h"

#include <gtest/gtest.h>
#include <linux/capability.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <system_error>

namespace qvn::test {
namespace {

void require(bool holds, const std::string& what) {
  if (!holds) throw std::system_error(errno, std::generic_category(), what);
}

void writeTo(const std::string& file, const std::string& text) {
  std::ofstream stream(file);
  stream << text << std::flush;
  if (!stream) throw std::runtime_error("cannot write " + file);
}

void runShell(const std::string& line) {
  if (std::system(line.c_str()) != 0) throw std::runtime_error("failed: " + line);
}

// Any user may where the system allows user namespaces, and root where it does not.
void enterOwnNetwork() {
  const std::string user = std::to_string(geteuid());
  const std::string group = std::to_string(getegid());
  if (unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0) {
    require(unshare(CLONE_NEWNET) == 0, "a network of the test's own, which this user may not make");
    return;
  }
  writeTo("/proc/self/setgroups", "deny");
  writeTo("/proc/self/uid_map", "0 " + user + " 1");
  writeTo("/proc/self/gid_map", "0 " + group + " 1");
}

void startLoopback() {
  const int descriptor = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  require(descriptor >= 0, "socket");
  ifreq request{};
  std::snprintf(request.ifr_name, sizeof request.ifr_name, "lo");
  request.ifr_flags = IFF_UP | IFF_RUNNING;
  const int result = ioctl(descriptor, SIOCSIFFLAGS, &request);
  close(descriptor);
  require(result == 0, "starting the loopback");
}

int runHere(EchoSockets sockets, const std::function<void()>& body) {
  try {
    enterOwnNetwork();
    startLoopback();
    if (sockets == EchoSockets::Datagram) writeTo("/proc/sys/net/ipv4/ping_group_range", "0 0");
    body();
  } catch (const std::exception& error) {
    ADD_FAILURE() << error.what();
  }
  return testing::Test::HasFailure() ? 1 : 0;
}

}  // namespace

void runInOwnNetwork(EchoSockets sockets, const std::function<void()>& body) {
  std::fflush(nullptr);
  const pid_t process = fork();
  require(process >= 0, "fork");
  if (process == 0) {
    const int status = runHere(sockets, body);
    std::cout.flush();
    std::fflush(nullptr);
    _exit(status);
  }
  int status = 0;
  while (waitpid(process, &status, 0) < 0) require(errno == EINTR, "waitpid");
  EXPECT_EQ(status, 0) << "in the network of its own, see above";
}

void stopAnsweringEchoes() { writeTo("/proc/sys/net/ipv4/icmp_echo_ignore_all", "1"); }

void giveUpRawSockets() {
  // Also of the programs that this process starts, to which its user would bring the right back.
  require(prctl(PR_CAPBSET_DROP, CAP_NET_RAW, 0, 0, 0) == 0, "prctl");
  __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
  std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> rights{};
  require(syscall(SYS_capget, &header, rights.data()) == 0, "capget");
  rights[0].effective &= ~(1U << CAP_NET_RAW);
  rights[0].permitted &= ~(1U << CAP_NET_RAW);
  require(syscall(SYS_capset, &header, rights.data()) == 0, "capset");
}

Router::Router() {
  std::array<int, 2> ready{};
  std::array<int, 2> life{};
  require(pipe(ready.data()) == 0 && pipe(life.data()) == 0, "pipe");
  process_ = fork();
  require(process_ >= 0, "fork");
  if (process_ == 0) {
    close(life[1]);
    char byte = unshare(CLONE_NEWNET) == 0 ? '1' : '0';
    if (write(ready[1], &byte, 1) == 1) [[maybe_unused]]
      const auto ended = read(life[0], &byte, 1);
    _exit(0);
  }
  input_ = life[1];
  char byte = '0';
  require(read(ready[0], &byte, 1) == 1 && byte == '1', "the router's network");
  for (const int descriptor : {ready[0], ready[1], life[0]}) close(descriptor);
  runShell("ip link add cable type veth peer name port netns " + std::to_string(process_));
  runShell("ip address add 10.9.0.1/24 dev cable && ip link set cable up && ip route add default via 10.9.0.2");
  run("ip link set lo up && ip address add 10.9.0.2/24 dev port && ip link set port up");
  run("echo 1 > /proc/sys/net/ipv4/ip_forward");
}

Router::~Router() {
  close(input_);
  waitpid(process_, nullptr, 0);
}

void Router::run(const std::string& line) const {
  // The file system of the kernel's settings shows those of the network that its reader is in.
  runShell("nsenter --net=/proc/" + std::to_string(process_) + "/ns/net sh -c '" + line + "'");
}

}  // namespace qvn::test
