// One open connection of the driver manager, and the cursor whose rows are still on their way on it.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "qvn/data/drivers/odbc/engine_kind.h"
#include "qvn/data/drivers/odbc/handles.h"
#include "qvn/data/drivers/odbc/odbc_target.h"
#include "qvn/data/provider_error.h"

namespace qvn::data::odbc {

class OdbcCursor;

class OdbcLink {
 public:
  /// Connects. Throws ProviderError kLoginRefused, kUnspecified, or kNoSuchProvider when the ODBC driver is not
  /// installed.
  OdbcLink(const Target& target, std::chrono::seconds connectTimeout);

  [[nodiscard]] SQLHDBC handle() const { return connection_.get(); }
  [[nodiscard]] EngineKind engine() const { return engine_; }
  [[nodiscard]] const std::string& shownName() const { return shownName_; }
  /// A text that the driver tells about itself or its engine; "" when it does not.
  [[nodiscard]] std::string info(SQLUSMALLINT what) const;
  /// A name in the engine's quotes.
  [[nodiscard]] std::string quoted(std::string_view name) const;

  /// A new statement. Throws ProviderError.
  [[nodiscard]] StatementHandle newStatement() const;
  /// The error of a statement's last call. After a lost connection every further statement fails at once.
  [[nodiscard]] ProviderError statementError(SQLHSTMT statement, std::string_view doing);
  /// What the driver reported, as a lost connection: from now on every further statement fails at once.
  [[nodiscard]] ProviderError lostError(const ProviderError& reported);
  /// Throws ProviderError kUnspecified when the connection was lost before.
  void requireAlive() const;

  /// The cursor that reads its rows from this connection, null when none does. It registers and removes itself.
  [[nodiscard]] OdbcCursor* reader() const { return reader_; }
  void setReader(OdbcCursor* reader) { reader_ = reader; }

 private:
  [[nodiscard]] bool saysItIsDead() const;

  EnvironmentHandle environment_;
  ConnectionHandle connection_;
  std::string shownName_;
  EngineKind engine_ = EngineKind::Other;
  std::string quote_;
  bool isLost_ = false;
  OdbcCursor* reader_ = nullptr;
};

}  // namespace qvn::data::odbc
