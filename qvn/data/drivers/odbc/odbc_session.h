// An open connection through an ODBC driver, as the layers above use it.
#pragma once

#include <atomic>
#include <optional>
#include <string>

#include "qvn/data/driver.h"
#include "qvn/data/drivers/odbc/odbc_link.h"
#include "qvn/data/drivers/odbc/odbc_target.h"
#include "qvn/data/drivers/watchdog.h"

namespace qvn::data::odbc {

class OdbcSession final : public Session {
 public:
  /// Connects. See Driver::connect.
  explicit OdbcSession(const ConnectRequest& request);

  /// A text of several statements is one batch where the engine takes it: the first result with rows is the cursor, and
  /// the number of rows is the first that the batch tells.
  StatementResult execute(std::string_view sql) override;
  void setCommandTimeout(std::chrono::seconds timeout) override;
  [[nodiscard]] std::string numberClause(const std::string& column) const override;
  [[nodiscard]] std::string engineVersion() override;
  [[nodiscard]] bool isClustered() const override { return isClustered_; }
  [[nodiscard]] std::string literal(const Variant& value, FieldType type) const override;

 private:
  // Lets the engine end a wait for another session's row before the statement's own time is over, so that the error
  // tells what it was that took so long.
  void limitLockWait();
  [[nodiscard]] std::chrono::seconds lockWait() const;
  void requireExecutable(std::string_view sql) const;
  // The part of the text that is handed to the driver. Throws ProviderError when it may not be run.
  [[nodiscard]] std::string_view executable(std::string_view sql) const;
  // Lets FreeTDS give up a server that does not even answer the order to end a statement.
  void limitSilence(SQLHSTMT statement) const;
  StatementResult run(const StatementHandle& statement, std::string_view sql);
  // Repeats a statement that met another session's lock, where the driver itself must not wait for it.
  StatementResult runPatiently(const StatementHandle& statement, std::string_view sql);
  // An order to end a statement may have crossed its answer; the server that applies it to the next one finds this one.
  void absorbCancel();
  std::int64_t lastNumber();
  // What a statement of one value says; nothing when it is NULL or fails.
  std::optional<std::int64_t> askNumber(std::string sql);

  OdbcLink link_;
  std::chrono::seconds timeout_;
  bool isClustered_ = false;
  std::atomic<SQLHSTMT> running_ = nullptr;  // what the watchdog may cancel
  Watchdog watchdog_{[this] { SQLCancel(running_); }};
};

}  // namespace qvn::data::odbc
