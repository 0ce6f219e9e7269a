#include "bench/support/mysql_peer.h"

#include <cstdio>
#include <cstdlib>

#include "qvn/data/connection_string.h"

namespace qvn::bench {

std::string mysqlConnectionString() {
  if (const char* text = std::getenv("QVN_TEST_MYSQL")) return text;
  std::fprintf(stderr, "QVN_TEST_MYSQL is not set; run scripts/bench, which starts a server\n");
  std::exit(1);
}

MYSQL* connectMysqlPeer() {
  const data::ConnectionString parameters(mysqlConnectionString());
  MYSQL* server = mysql_init(nullptr);
  mysql_options(server, MYSQL_SET_CHARSET_NAME, "utf8mb4");
  const std::string socket = parameters.value({"SOCKET"}).value_or("");
  const std::string user = parameters.value({"UID"}).value_or("");
  const std::string password = parameters.value({"PWD"}).value_or("");
  const std::string database = parameters.value({"DATABASE"}).value_or("");
  return mysql_real_connect(server, nullptr, user.c_str(), password.c_str(), database.c_str(), 0, socket.c_str(), 0);
}

}  // namespace qvn::bench
