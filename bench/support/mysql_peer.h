// The MySQL server that benchmarks run against, for the library and for the raw peer.
#pragma once

#include <mysql.h>

#include <string>

namespace qvn::bench {

/// From the environment variable QVN_TEST_MYSQL; ends the program with a message when it is not set.
std::string mysqlConnectionString();

/// A session of the client library's own on the same server and database; null when it cannot connect.
MYSQL* connectMysqlPeer();

}  // namespace qvn::bench
