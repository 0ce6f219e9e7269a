// Rows of a statement of the embedded engine.
#pragma once

#include <vector>

#include "qvn/data/driver.h"
#include "qvn/data/drivers/sqlite/statement_cache.h"

namespace qvn::data::sqlite {

class SqliteCursor final : public Cursor {
 public:
  /// `statement` has been stepped once; `hasRow` tells whether that gave a row.
  SqliteCursor(CachedStatement statement, bool hasRow);

  [[nodiscard]] const std::vector<Column>& columns() const override { return columns_; }
  [[nodiscard]] std::vector<ColumnOrigin> origins() override;
  bool next() override;
  void read(std::size_t column, Variant& value) override;

 private:
  enum class Stage { FirstRowReady, Reading, Done };

  CachedStatement statement_;
  std::vector<Column> columns_;
  std::vector<FieldType> types_;  // those of the columns, close together for reading
  Stage stage_;
};

}  // namespace qvn::data::sqlite
