// The private MySQL server that the tests run against; scripts/test-servers starts it.
#pragma once

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace qvn::test {

/// Value of an environment variable that scripts/test-servers sets. A test that needs the server fails without it.
inline std::string serverVariable(const char* name) {
  const char* const value = std::getenv(name);
  if (value == nullptr || *value == '\0') {
    throw std::runtime_error(std::string("falta la variable de entorno ") + name +
                             ": arranque el servidor de pruebas con «scripts/test-servers start CARPETA» y lea "
                             "«. CARPETA/env»; scripts/test hace las dos cosas");
  }
  return value;
}

/// The server's administrator, over its local socket.
inline std::string mysqlConnectionString() { return serverVariable("QVN_TEST_MYSQL"); }

/// A user who may do everything in the database qvn_test and nothing outside it, over TCP.
inline std::string mysqlTcpConnectionString() { return serverVariable("QVN_TEST_MYSQL_TCP"); }

}  // namespace qvn::test
