// Rows of a saved recordset, read from its file one by one.
#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "qvn/data/driver.h"
#include "qvn/data/drivers/persist/saved_schema.h"

namespace qvn::data::persist {

/// Gives the rows as they stood when they were saved: with pending changes and insertions, without deleted rows.
class SavedCursor final : public Cursor {
 public:
  explicit SavedCursor(const std::filesystem::path& path);

  [[nodiscard]] const std::vector<Column>& columns() const override { return columns_; }
  [[nodiscard]] std::vector<ColumnOrigin> origins() override { return origins_; }
  bool next() override;
  void read(std::size_t column, Variant& value) override;

 private:
  bool stepToRow();
  void readRow();
  void readOriginal();
  void setNull(std::string_view attributes);

  SavedFile file_;
  std::vector<Column> columns_;
  std::vector<ColumnOrigin> origins_;
  std::unordered_map<std::string, std::size_t> byAttribute_;
  std::vector<Variant> row_;
  bool isInData_ = false;
  bool isDone_ = false;
  int deletedDepth_ = -1;  // of the element of deleted rows that is being read
};

}  // namespace qvn::data::persist
