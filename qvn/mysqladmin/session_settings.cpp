#include "qvn/mysqladmin/session_settings.h"

#include <array>
#include <utility>

#include "qvn/data/sql_text.h"
#include "qvn/host/require.h"

namespace qvn::mysqladmin {
namespace {

constexpr auto kNames = std::to_array<std::string_view>({
    "sql_mode",
    "time_zone",
    "foreign_key_checks",
    "unique_checks",
    "sql_notes",
    "tx_isolation",
    "autocommit",
});

}  // namespace

SessionSettings::SessionSettings(const data::ConnectionPtr& connection)
    : connection_(host::required(connection)), timeout_(connection_->CommandTimeout()) {
  database_ = firstText("SELECT DATABASE()", connection_);
  restoring_ = "SET SESSION ";
  const char* separator = "";
  for (const std::string_view name : kNames) {
    const auto row = connection_->Execute("SELECT @@" + std::string(name));
    restoring_.append(separator).append(name).append(" = ").append(connection_->Literal(row->Fields(0).Value()));
    separator = ", ";
  }
  connection_->setCommandTimeout(std::chrono::seconds::zero());
}

SessionSettings::~SessionSettings() {
  try {
    connection_->Execute("ROLLBACK");
    connection_->Execute("UNLOCK TABLES");
    connection_->Execute(restoring_);
    connection_->Execute("SET NAMES utf8mb4");
    if (!database_.empty()) connection_->Execute("USE " + quotedName(database_));
    connection_->setCommandTimeout(timeout_);
  } catch (const RuntimeError&) {
    // The connection is gone, or the dump dropped the database: the next statement of the host says so.
    return;
  }
}

std::string quotedName(std::string_view name) { return data::doubledQuotes(name, '`'); }

std::string firstText(const std::string& sql, const data::ConnectionPtr& connection) {
  const auto row = connection->Execute(sql);
  const Variant& value = row->Fields(0).Value();
  return value.isNull() ? std::string() : value.toText();
}

}  // namespace qvn::mysqladmin
