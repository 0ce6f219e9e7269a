// Running statements inside a transaction.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "qvn/data/driver.h"
#include "qvn/data/drivers/firebird/firebird_transaction.h"
#include "qvn/data/drivers/firebird/long_literals.h"

namespace qvn::data::firebird {

class PreparedStatement {
 public:
  /// Throws ProviderError when the engine refuses the text.
  PreparedStatement(FirebirdLink& link, std::shared_ptr<Transaction> transaction, StatementText text);

  /// isc_info_sql_stmt_select and the like.
  [[nodiscard]] unsigned type() const { return type_; }

  /// Runs it, up to its first row. A cursor keeps the transaction while it needs it. Call it once.
  StatementResult run();

 private:
  // The long literals as the message of the statement's parameters.
  struct Parameters {
    MetadataHandle metadata;
    std::vector<unsigned char> message;
  };
  Parameters parameters();
  std::int64_t affectedRows();

  FirebirdLink& link_;
  std::shared_ptr<Transaction> transaction_;
  StatementText text_;
  StatementHandle handle_;
  unsigned type_ = 0;
};

/// Rows of a statement that reads, in a transaction that lasts as long as they do.
std::unique_ptr<Cursor> query(FirebirdLink& link, std::string_view sql);

}  // namespace qvn::data::firebird
