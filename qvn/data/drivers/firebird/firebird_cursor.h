// The rows of one statement.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "qvn/data/driver.h"
#include "qvn/data/drivers/firebird/firebird_column.h"
#include "qvn/data/drivers/firebird/firebird_transaction.h"

namespace qvn::data::firebird {

/// What a cursor takes over from its statement.
struct StatementRows {
  std::shared_ptr<Transaction> transaction;
  StatementHandle statement;
  MetadataHandle metadata;  ///< of the output
};

class FirebirdCursor final : public Cursor {
 public:
  /// Rows that are fetched one by one. Throws ProviderError when the engine reports an error instead of the first row.
  FirebirdCursor(FirebirdLink& link, StatementRows rows, ResultSetHandle resultSet);
  /// The one row of a statement that has been run, as it stands in `message`. It does not need the transaction further.
  FirebirdCursor(FirebirdLink& link, StatementRows rows, std::vector<unsigned char> message);

  [[nodiscard]] const std::vector<Column>& columns() const override { return shape_.columns; }
  [[nodiscard]] std::vector<ColumnOrigin> origins() override;
  bool next() override;
  void read(std::size_t column, Variant& value) override;

 private:
  enum class Outcome { Done, Failed };

  bool fetch();
  // Gives back what the rows needed; the last cursor of a transaction that was left to its cursors ends it.
  void finish(Outcome outcome);
  void keepBlobs();

  FirebirdLink& link_;
  StatementRows rows_;
  ResultSetHandle resultSet_;
  RowShape shape_;
  std::vector<unsigned char> message_;  // the current row
  std::vector<std::string> blobs_;      // by column, of a row that outlives its transaction
  std::string buffer_;                  // of the blob that is read
  bool hasRow_ = false;
  bool isFirst_ = true;  // the row was read ahead of the first next()
};

}  // namespace qvn::data::firebird
