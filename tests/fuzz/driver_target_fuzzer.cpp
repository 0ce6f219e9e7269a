// Any bytes as a connection string for each driver: what it would connect to is found, or refused with a ProviderError,
// and the names that messages show never hold the password.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "qvn/data/drivers/firebird/database_target.h"
#include "qvn/data/drivers/mysql/server_list.h"
#include "qvn/data/drivers/odbc/odbc_target.h"
#include "qvn/data/provider_error.h"

namespace {

using namespace qvn::data;  // NOLINT(google-build-using-namespace): all of it is under test

constexpr const char* kPassword = "s3cr3t;'\"}{";

void require(bool holds) {
  if (!holds) std::abort();
}

template <typename Resolve>
void resolve(std::string_view text, Resolve shownNameOf) {
  try {
    const ConnectionString parsed(text);
    // The file of an Access database would be opened.
    if (parsed.driverName().starts_with("Microsoft") || parsed.driverName().starts_with("microsoft")) return;
    const ConnectRequest request{parsed, "usuario", kPassword, {}};
    require(shownNameOf(request).find(kPassword) == std::string::npos);
  } catch (const qvn::RuntimeError& error) {
    require(error.description().find(kPassword) == std::string::npos);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  resolve("MySQL;" + text, [](const ConnectRequest& request) {
    std::string names;
    for (const mysql::ServerAddress& server : mysql::serverList(request).servers) names += server.quotedName();
    return names;
  });
  resolve("Provider=IbOleDb;" + text,
          [](const ConnectRequest& request) { return firebird::databaseTarget(request).quotedName(); });
  for (const char* beginning : {"Provider=SQLNCLI10;Server=s;", "Driver=MariaDB;", "DSN=x;"}) {
    resolve(beginning + text, [](const ConnectRequest& request) { return odbc::odbcTarget(request).shownName; });
  }
  return 0;
}
