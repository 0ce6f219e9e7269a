#include "qvn/data/drivers/odbc/odbc_link.h"

#include <algorithm>
#include <array>

#include "qvn/data/drivers/odbc/installed_drivers.h"
#include "qvn/data/drivers/odbc/odbc_error.h"
#include "qvn/data/sql_text.h"

namespace qvn::data::odbc {
namespace {

// The driver manager's states for a driver that it does not know or cannot load.
bool isMissingDriver(const ProviderError& error) {
  return std::ranges::any_of(error.errors(), [](const ErrorItem& item) {
    return item.sqlState == "IM002" || item.sqlState == "IM003" ||
           item.description.find("Can't open lib") != std::string::npos;
  });
}

ProviderError missingDriver(const Target& target) {
  const std::string package = target.debianPackage.empty()
                                  ? "odbc-mariadb, libsqliteodbc, tdsodbc u odbc-mdbtools, según el motor"
                                  : target.debianPackage;
  return ownError(provider_number::kNoSuchProvider, "IM002",
                  "No está instalado el controlador ODBC, o no existe la fuente de datos, de «" + target.shownName +
                      "»; los controladores instalados son: " + registeredDrivers() +
                      ". En Debian lo trae el paquete " + package);
}

// What went wrong, under a number that does not pass for a refused statement.
ProviderError connectError(SQLHDBC connection, const Target& target) {
  const ProviderError error =
      lastError(SQL_HANDLE_DBC, connection, engineKind(target.debianPackage), "No se abrió «" + target.shownName + "»");
  if (isMissingDriver(error)) return missingDriver(target);
  std::vector<ErrorItem> items = error.errors();
  // The record that tells of the log-in may come behind one that only says that there is no connection.
  for (const ErrorItem& item : items) {
    if (item.number == provider_number::kLoginRefused) items.front().number = item.number;
  }
  if (items.front().number != provider_number::kLoginRefused) {
    items.front().description.append("; revise la cadena de conexión y que el servidor o el archivo estén en su lugar");
  }
  if (items.front().number == provider_number::kStatementRefused) items.front().number = provider_number::kUnspecified;
  return ProviderError(std::move(items));
}

}  // namespace

OdbcLink::OdbcLink(const Target& target, std::chrono::seconds connectTimeout)
    : environment_(allocate(SQL_HANDLE_ENV, nullptr)), shownName_(target.shownName) {
  SQLSetEnvAttr(environment_.get(), SQL_ATTR_ODBC_VERSION, attributeValue(SQL_OV_ODBC3), 0);
  connection_.reset(allocate(SQL_HANDLE_DBC, environment_.get()));
  if (!connection_) throw ownError(provider_number::kUnspecified, "HY001", "No hay memoria para la conexión ODBC");
  SQLSetConnectAttr(handle(), SQL_ATTR_LOGIN_TIMEOUT, attributeValue(static_cast<SQLULEN>(connectTimeout.count())), 0);
  std::string text = target.connectionString;
  const SQLRETURN opened = SQLDriverConnect(handle(), nullptr, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS,
                                            nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
  if (!SQL_SUCCEEDED(opened)) throw connectError(handle(), target);
  engine_ = engineKind(info(SQL_DBMS_NAME) + " " + info(SQL_DRIVER_NAME));
  quote_ = info(SQL_IDENTIFIER_QUOTE_CHAR);
  if (quote_ == " " && engine_ == EngineKind::SqlServer) quote_ = "\"";
}

std::string OdbcLink::info(SQLUSMALLINT what) const {
  std::array<char, 256> text{};
  SQLSMALLINT length = 0;
  if (!SQL_SUCCEEDED(SQLGetInfo(handle(), what, text.data(), text.size(), &length))) return {};
  return text.data();
}

std::string OdbcLink::quoted(std::string_view name) const {
  return quote_.size() == 1 && quote_ != " " ? doubledQuotes(name, quote_.front()) : std::string(name);
}

StatementHandle OdbcLink::newStatement() const {
  StatementHandle statement(allocate(SQL_HANDLE_STMT, handle()), FreeHandle<SQL_HANDLE_STMT>{});
  if (!statement) throw lastError(SQL_HANDLE_DBC, handle(), engine_, "No se preparó la sentencia");
  return statement;
}

ProviderError OdbcLink::statementError(SQLHSTMT statement, std::string_view doing) {
  ProviderError error = lastError(SQL_HANDLE_STMT, statement, engine_, doing);
  // FreeTDS has no code for a connection that was reset, only "Unknown error".
  if (error.number() != provider_number::kUnspecified && saysItIsDead()) error = lostError(error);
  // A damaged file is no lost connection: another statement may read what is sound.
  if (error.number() == provider_number::kUnspecified && engine_ != EngineKind::Sqlite) isLost_ = true;
  return error;
}

ProviderError OdbcLink::lostError(const ProviderError& reported) {
  isLost_ = true;
  std::vector<ErrorItem> items = reported.errors();
  items.front().number = provider_number::kUnspecified;
  items.front().sqlState = "08S01";
  return ProviderError(std::move(items));
}

bool OdbcLink::saysItIsDead() const {
  // Others say it in their codes; MariaDB's driver would ask its server, in the middle of a result.
  if (engine_ == EngineKind::MySql || engine_ == EngineKind::Sqlite) return false;
  SQLUINTEGER isDead = SQL_CD_FALSE;
  return SQL_SUCCEEDED(SQLGetConnectAttr(handle(), SQL_ATTR_CONNECTION_DEAD, &isDead, sizeof isDead, nullptr)) &&
         isDead == SQL_CD_TRUE;
}

void OdbcLink::requireAlive() const {
  if (!isLost_) return;
  throw ownError(provider_number::kUnspecified, "08003",
                 "Se perdió la conexión con «" + shownName_ + "»; vuelva a conectarse");
}

}  // namespace qvn::data::odbc
