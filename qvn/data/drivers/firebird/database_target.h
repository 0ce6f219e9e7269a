// Where a database is and who logs in, as a connection string tells it.
#pragma once

#include <string>

#include "qvn/data/driver.h"

namespace qvn::data::firebird {

enum class AccessMode { ReadWrite, ReadWriteCreate, ReadOnly };

struct DatabaseTarget {
  std::string name;  ///< as the client library takes it: a path, or "host/port:path"
  bool isOnServer = false;
  std::string user;
  std::string password;
  std::string role;
  std::string charset;
  AccessMode mode = AccessMode::ReadWrite;

  /// For error texts: "«caja/3051:/datos/tienda.fdb»".
  [[nodiscard]] std::string quotedName() const { return "«" + name + "»"; }
};

/// Throws ProviderError kBadConnectionString when no database is named or the mode does not exist.
DatabaseTarget databaseTarget(const ConnectRequest& request);

}  // namespace qvn::data::firebird
