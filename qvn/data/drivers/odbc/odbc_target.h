// Where a connection string leads: the driver manager's own connection string for it.
#pragma once

#include <string>

#include "qvn/data/driver.h"

namespace qvn::data::odbc {

struct Target {
  std::string connectionString;  ///< for the driver manager, with the password
  std::string shownName;         ///< for messages: server or file, or the driver's name
  std::string debianPackage;     ///< that brings the ODBC driver; "" when it is not known
};

/// True when the connection string is for this driver.
bool isForOdbc(const ConnectionString& parameters);

/// Throws ProviderError kBadConnectionString when the server or file is missing; for Access files, kUnspecified when
/// the file is none and kLoginRefused when it has another password.
Target odbcTarget(const ConnectRequest& request);

}  // namespace qvn::data::odbc
