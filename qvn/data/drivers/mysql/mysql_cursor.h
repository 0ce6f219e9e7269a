// The rows of one statement: read from the connection while it is free, from memory once another statement needs it.
#pragma once

#include <optional>

#include "qvn/data/driver.h"
#include "qvn/data/drivers/mysql/answer_wait.h"
#include "qvn/data/drivers/mysql/mysql_column.h"
#include "qvn/data/drivers/mysql/mysql_link.h"
#include "qvn/data/drivers/mysql/unread_rows.h"
#include "qvn/data/provider_error.h"

namespace qvn::data::mysql {

class MysqlCursor final : public Cursor {
 public:
  /// Takes over a result whose rows have not been read, and waits for the first of them. `link` must outlive the
  /// cursor. Throws ProviderError when the engine reports an error instead of the first row.
  MysqlCursor(MysqlLink& link, ResultHandle result, AnswerWait& wait);
  /// Drops the rows that were not read, so that the connection is free again. An error behind them that took the
  /// transaction back is left to the link.
  ~MysqlCursor() override;
  MysqlCursor(const MysqlCursor&) = delete;
  MysqlCursor& operator=(const MysqlCursor&) = delete;

  [[nodiscard]] const std::vector<Column>& columns() const override { return columns_; }
  [[nodiscard]] std::vector<ColumnOrigin> origins() override;
  bool next() override;
  void read(std::size_t column, Variant& value) override;

  /// For the cursor that reads from its link. Brings the rows that are left into memory and frees the connection. An
  /// error of the engine on the way is kept for the next() that would have met it; when it took the transaction back,
  /// for the link as well.
  void releaseLink();

 private:
  // Makes `row` the current one; null ends the rows and finds out why.
  void take(MYSQL_ROW row);
  void finishReading();
  void keepLostTransaction();
  [[nodiscard]] bool isReading() const { return link_.reader() == this; }

  MysqlLink& link_;
  bool wasInTransaction_;  // when the rows began to come
  ResultHandle result_;
  std::vector<Column> columns_;
  std::vector<ValueKind> kinds_;
  RowTexts row_;         // the current row
  bool hasRow_ = false;  // row_ is a row
  bool isFirst_ = true;  // row_ was read ahead of the first next()
  UnreadRows unread_;
  std::optional<ProviderError> failure_;  // what ended the rows
};

}  // namespace qvn::data::mysql
