// Rows of a statement, fetched in blocks.
#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "qvn/data/driver.h"
#include "qvn/data/drivers/odbc/handles.h"
#include "qvn/data/drivers/odbc/odbc_column.h"
#include "qvn/data/drivers/odbc/odbc_link.h"

namespace qvn::data::odbc {

class OdbcCursor final : public Cursor {
 public:
  /// `statement` has been executed and gives rows; `sql` is its text. The first block is fetched here. Throws
  /// ProviderError.
  OdbcCursor(OdbcLink& link, StatementHandle statement, std::string_view sql);
  ~OdbcCursor() override;
  OdbcCursor(const OdbcCursor&) = delete;
  OdbcCursor& operator=(const OdbcCursor&) = delete;

  [[nodiscard]] const std::vector<Column>& columns() const override { return columns_; }
  [[nodiscard]] std::vector<ColumnOrigin> origins() override;
  bool next() override;
  void read(std::size_t column, Variant& value) override;

  /// Reads the rest of the rows into memory, so that another statement can run on the connection. An error on the way
  /// is thrown by next() in its place.
  void releaseLink() noexcept;

 private:
  // Values of one column for a whole block, or the value of a long column in the current row.
  struct Buffer {
    std::vector<char> bytes;
    std::vector<SQLLEN> sizes;
    std::string longValue;
  };
  using HeldRow = std::vector<Variant>;

  void bindColumns();
  bool fetchBlock();
  bool fetchRow();
  void fetchLongValues();
  bool fetchLong(std::size_t column);
  void readFetched(std::size_t column, Variant& value) const;
  [[nodiscard]] HeldRow currentRow() const;
  void finish() noexcept;
  [[nodiscard]] bool isReading() const { return link_.reader() == this; }

  OdbcLink& link_;
  StatementHandle statement_;
  std::string sql_;
  std::vector<Column> columns_;
  std::vector<Transfer> transfers_;
  std::vector<Buffer> buffers_;
  std::size_t firstLong_ = 0;  // columns from here on are fetched one by one
  SQLULEN blockRows_ = 1;
  std::unique_ptr<SQLULEN> fetched_ = std::make_unique<SQLULEN>(0);  // rows in the block; the driver writes it
  SQLULEN at_ = 0;                                                   // the current row in the block
  bool isFirst_ = true;
  bool hasRow_ = false;
  std::deque<HeldRow> held_;  // the current row and those after it, once the link was released
  std::optional<ProviderError> failure_;
};

}  // namespace qvn::data::odbc
