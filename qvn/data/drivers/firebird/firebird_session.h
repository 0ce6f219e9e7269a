// An open database, as the layers above use it.
#pragma once

#include <memory>

#include "qvn/data/driver.h"
#include "qvn/data/drivers/firebird/firebird_link.h"
#include "qvn/data/drivers/firebird/firebird_statement.h"
#include "qvn/data/drivers/watchdog.h"
#include "qvn/data/provider_error.h"

namespace qvn::data::firebird {

class FirebirdSession final : public Session {
 public:
  /// Connects. See Driver::connect.
  explicit FirebirdSession(const ConnectRequest& request);

  StatementResult execute(std::string_view sql) override;
  void setCommandTimeout(std::chrono::seconds timeout) override { timeout_ = timeout; }
  [[nodiscard]] std::string numberClause(const std::string& column) const override { return " RETURNING " + column; }
  [[nodiscard]] std::string engineVersion() override;
  [[nodiscard]] std::string literal(const Variant& value, FieldType type) const override;

 private:
  StatementResult run(std::string_view sql);
  StatementResult runAlone(StatementText text);
  StatementResult runInside(StatementText text);
  void openTransaction(std::string_view sql);
  // COMMIT or ROLLBACK, by the type of the statement.
  void endTransaction(unsigned type, std::string_view sql);
  // Lets the engine forget an order to end a statement that came too late for it.
  void absorbCancel() noexcept;

  FirebirdLink link_;
  std::chrono::seconds timeout_;
  std::shared_ptr<Transaction> transaction_;  // the one that the host opened; null outside
  Watchdog watchdog_{[this] { link_.cancelStatement(); }, [this] { link_.breakOff(); }};
};

}  // namespace qvn::data::firebird
