// Where a server is and who logs in.
#pragma once

#include <string>

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

/// A port of a connection string; 0 for "". Throws ProviderError kBadConnectionString for what is not a number from 1
/// to 65535.
unsigned parsePort(const std::string& text);

}  // namespace qvn::data::mysql
