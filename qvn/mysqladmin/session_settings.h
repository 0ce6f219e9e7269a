// Settings of a MySQL session that dumps change, put back when they are done.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "qvn/data/connection.h"

namespace qvn::mysqladmin {

/// Takes the settings when it is made, and puts them back when it goes: database, SQL mode, time zone, key checks,
/// notes, isolation, automatic commits, characters and time-out. Until then statements may take as long as they need.
/// What is left of a transaction is rolled back and tables are unlocked. A lost connection has no settings to put back.
class SessionSettings {
 public:
  /// Throws ProviderError.
  explicit SessionSettings(const data::ConnectionPtr& connection);
  ~SessionSettings();
  SessionSettings(const SessionSettings&) = delete;
  SessionSettings& operator=(const SessionSettings&) = delete;

  /// The session's database; "" when it has none.
  [[nodiscard]] const std::string& database() const { return database_; }

 private:
  data::ConnectionPtr connection_;
  std::chrono::seconds timeout_;
  std::string database_;
  std::string restoring_;  // the statement that sets them
};

/// A name as it stands in statements.
std::string quotedName(std::string_view name);

/// The first value of a statement's first row as text, "" for Null. Throws ProviderError, also when there is no row.
std::string firstText(const std::string& sql, const data::ConnectionPtr& connection);

}  // namespace qvn::mysqladmin
