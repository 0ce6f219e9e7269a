// Where a server is and who logs in, as a connection string tells it.
#pragma once

#include <string>

#include "qvn/data/driver.h"

namespace qvn::data::mysql {

struct ServerAddress {
  std::string host;    ///< never empty
  std::string socket;  ///< path of a local socket; empty for the host's default way
  unsigned port = 0;   ///< 0 when the connection string names none
  std::string database;
  std::string user;
  std::string password;

  /// For error texts: "«caja»", "«caja:3307»" or "«/run/mysqld/mysqld.sock»".
  [[nodiscard]] std::string quotedName() const;
};

/// Throws ProviderError kBadConnectionString for a port that is not a number from 1 to 65535.
ServerAddress serverAddress(const ConnectRequest& request);

}  // namespace qvn::data::mysql
