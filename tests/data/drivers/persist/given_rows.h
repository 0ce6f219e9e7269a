// Columns and rows as a test gives them, without an engine.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "qvn/base/runtime_error.h"
#include "qvn/data/driver.h"
#include "qvn/data/driver_registry.h"
#include "qvn/data/drivers/persist/persist_driver.h"
#include "qvn/data/drivers/persist/persist_store.h"
#include "qvn/data/recordset.h"

namespace qvn::test {

class GivenRows final : public data::Cursor {
 public:
  GivenRows(std::vector<data::Column> columns, std::vector<std::vector<Variant>> rows)
      : columns_(std::move(columns)), rows_(std::move(rows)) {}

  [[nodiscard]] const std::vector<data::Column>& columns() const override { return columns_; }
  [[nodiscard]] std::vector<data::ColumnOrigin> origins() override { return {}; }
  bool next() override { return ++at_ <= rows_.size(); }
  void read(std::size_t column, Variant& value) override { value = rows_[at_ - 1][column]; }

 private:
  std::vector<data::Column> columns_;
  std::vector<std::vector<Variant>> rows_;
  std::size_t at_ = 0;
};

/// Number and words of the error that a call raises; 0 when it raises none.
struct Refusal {
  std::int32_t number = 0;
  std::string words = {};
};

template <typename Call>
Refusal refusalOf(Call call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return {error.number(), error.description()};
  }
  return {};
}

/// Of rows that are saved to `path`.
inline Refusal refusalToSave(GivenRows rows, const std::string& path) {
  return refusalOf([&] { data::persistStore()->save(rows, path); });
}

/// The rows saved to `path` and read from there again.
inline data::RecordsetPtr saveAndLoad(GivenRows rows, const std::string& path) {
  data::persistStore()->save(rows, path);
  data::registerDriver(data::persistDriver());
  auto again = std::make_shared<data::Recordset>();
  again->setCursorLocation(data::CursorLocation::Client);
  again->Open(path, "Provider=MSPersist;");
  return again;
}

}  // namespace qvn::test
