// The same driver over the network, and networks that break.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include <thread>

#include "tests/data/drivers/firebird/firebird_fixture.h"
#include "tests/support/mysql_server.h"

namespace qvn::test {
namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;
namespace number = data::provider_number;

std::string serverConnectionString() { return serverVariable("QVN_TEST_FIREBIRD"); }

// "127.0.0.1/PORT:PATH" of the test database.
std::string dataSource() { return *data::ConnectionString(serverConnectionString()).value({"Data Source"}); }

TEST(FirebirdServer, RefusesAWrongPassword) {
  for (const char* const wrong : {";Password=secreto-1", ";User ID=nadie"}) {
    const auto error = providerError([&] { connectTo(serverConnectionString() + wrong); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), number::kLoginRefused);
    EXPECT_EQ(error->errors().front().nativeError, -902);
    EXPECT_EQ(error->description().find("secreto"), std::string::npos);
  }
}

TEST(FirebirdServer, TheRequestsUserAndPasswordGoFirst) {
  const data::ConnectionString right(serverConnectionString());
  const data::ConnectionString wrong(serverConnectionString() + ";User ID=nadie;Password=nada");
  EXPECT_NE(data::firebirdDriver()->connect({wrong, "SYSDBA", *right.value({"Password"}), {}}), nullptr);
}

TEST(FirebirdServer, MakesADatabaseAndRunsStatements) {
  const std::string file = serverVariable("QVN_TEST_FIREBIRD_DIR") + "/nueva_" + std::to_string(getpid()) + ".fdb";
  const std::string source = dataSource().substr(0, dataSource().find(':') + 1) + file;
  const auto session = connectTo(serverConnectionString() + ";Mode=ReadWriteCreate;Data Source=" + source, seconds(1));
  session->execute("CREATE TABLE notas (id INTEGER, nota BLOB SUB_TYPE TEXT)");
  const std::string text(1'000'000, 'x');
  session->execute("INSERT INTO notas VALUES (1, '" + text + "')");
  EXPECT_TRUE(*scalar(*session, "SELECT nota FROM notas").getIf<std::string>() == text);
  const std::string slow = "SELECT COUNT(*) FROM RDB$FIELDS a, RDB$FIELDS b, RDB$FIELDS c, RDB$FIELDS d";
  EXPECT_EQ(errorNumber([&] { session->execute(slow); }), number::kTimeout);
  EXPECT_EQ(shown(scalar(*session, "SELECT COUNT(*) FROM notas")), shown(std::int64_t{1}));
  std::filesystem::remove(file);
}

TEST(FirebirdServer, HoldsItsFilesAlone) {
  const auto holding = connectTo(serverConnectionString());
  const std::string file = dataSource().substr(dataSource().find(':') + 1);
  const auto error =
      providerError([&] { connectTo("Provider=IbOleDb;User ID=SYSDBA;Mode=ReadWriteCreate;Data Source=" + file); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), number::kUnspecified);
  EXPECT_NE(error->description().find("otro programa la tiene abierta"), std::string::npos) << error->description();
}

class Socket {
 public:
  explicit Socket(int descriptor) : descriptor_(descriptor) {
    if (descriptor_ < 0) throw std::runtime_error("no socket");
  }
  ~Socket() { close(descriptor_); }
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;
  [[nodiscard]] int get() const { return descriptor_; }

 private:
  int descriptor_;
};

// A port that passes one connection on to the server until it is cut.
class Relay {
 public:
  explicit Relay(std::uint16_t serverPort) {
    sockaddr_in address = loopback(0);
    socklen_t size = sizeof(address);
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (bind(listening_.get(), generic, size) != 0 || listen(listening_.get(), 1) != 0 ||
        getsockname(listening_.get(), generic, &size) != 0) {
      throw std::runtime_error("no listening socket");
    }
    port_ = ntohs(address.sin_port);
    thread_ = std::jthread([this, serverPort](const std::stop_token& stop) { pass(stop, serverPort); });
  }
  [[nodiscard]] int port() const { return port_; }
  void cut() {
    thread_.request_stop();
    thread_.join();
  }

 private:
  static sockaddr_in loopback(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
  }

  void pass(const std::stop_token& stop, std::uint16_t serverPort) const {
    pollfd waiting{listening_.get(), POLLIN, 0};
    while (poll(&waiting, 1, 10) == 0) {
      if (stop.stop_requested()) return;
    }
    const Socket client(accept(listening_.get(), nullptr, nullptr));
    const Socket server(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const sockaddr_in address = loopback(serverPort);
    if (connect(server.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0) return;
    while (!stop.stop_requested()) {
      pollfd ends[] = {{client.get(), POLLIN, 0}, {server.get(), POLLIN, 0}};
      poll(ends, 2, 10);
      for (int i = 0; i < 2; ++i) {
        char bytes[65536];
        if (ends[i].revents == 0) continue;
        const ssize_t size = recv(ends[i].fd, bytes, sizeof(bytes), 0);
        if (size <= 0) return;
        if (send(ends[1 - i].fd, bytes, static_cast<std::size_t>(size), MSG_NOSIGNAL) < 0) return;
      }
    }
  }

  Socket listening_{socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)};
  int port_ = 0;
  std::jthread thread_;
};

TEST(FirebirdServer, ABrokenNetworkEndsTheSessionAtOnce) {
  const std::string source = dataSource();
  const std::size_t slash = source.find('/');
  const std::size_t colon = source.find(':');
  Relay relay(static_cast<std::uint16_t>(std::stoi(source.substr(slash + 1, colon - slash - 1))));
  auto session = connectTo(serverConnectionString() + ";Data Source=127.0.0.1/" + std::to_string(relay.port()) +
                           source.substr(colon));
  data::StatementResult open =
      session->execute("SELECT a.RDB$FIELD_NAME FROM RDB$FIELDS a, RDB$FIELDS b, RDB$FIELDS c");
  ASSERT_TRUE(open.cursor->next());
  session->execute("SET TRANSACTION");
  relay.cut();
  const auto start = steady_clock::now();
  const auto error = providerError([&] { remaining(*open.cursor); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), number::kUnspecified);
  EXPECT_TRUE(error->errors().front().sqlState.starts_with("08")) << error->errors().front().sqlState;
  EXPECT_NE(error->description().find("vuelva a conectarse"), std::string::npos) << error->description();
  EXPECT_EQ(errorNumber([&] { session->execute("COMMIT"); }), number::kUnspecified);
  open.cursor.reset();
  session.reset();
  EXPECT_LT(steady_clock::now() - start, seconds(3));
}

}  // namespace
}  // namespace qvn::test
