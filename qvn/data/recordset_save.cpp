#include "qvn/base/path.h"
#include "qvn/data/internal/opened_recordset.h"
#include "qvn/data/recordset_store.h"

namespace qvn::data {
namespace {

// The rows from the current one on, for the store to read.
class RowsToSave final : public Cursor {
 public:
  RowsToSave(internal::RowSource& rows, const std::vector<Column>& columns, std::vector<ColumnOrigin> origins)
      : rows_(rows), columns_(columns), origins_(std::move(origins)) {}

  [[nodiscard]] const std::vector<Column>& columns() const override { return columns_; }
  [[nodiscard]] std::vector<ColumnOrigin> origins() override { return origins_; }
  bool next() override {
    if (isStarted_) rows_.next();
    isStarted_ = true;
    return rows_.hasRow();
  }
  void read(std::size_t column, Variant& value) override {
    const Variant& held = *rows_.value(column);
    if (const auto* text = held.getIf<std::string>()) {
      value.assignText(*text);
    } else {
      value = held;
    }
  }

 private:
  internal::RowSource& rows_;
  const std::vector<Column>& columns_;
  std::vector<ColumnOrigin> origins_;
  bool isStarted_ = false;
};

// Takes held rows back to where they stood, also when saving failed.
class KeptPosition {
 public:
  explicit KeptPosition(internal::RowSource& rows) : rows_(rows), isBeforeFirst_(rows.isBeforeFirst()) {
    // A deleted row has no place to come back to; the row after it has.
    if (!isBeforeFirst_ && !rows.isAfterLast() && !rows.hasRow()) rows.next();
    position_ = rows.position();
    rows.first();
  }
  ~KeptPosition() {
    if (position_ < 0 && !isBeforeFirst_) {
      rows_.last();
      rows_.next();
      return;
    }
    rows_.first();
    if (isBeforeFirst_ && rows_.hasRow()) rows_.previous();
    for (std::int64_t at = 1; at < position_; ++at) rows_.next();
  }
  KeptPosition(const KeptPosition&) = delete;
  KeptPosition& operator=(const KeptPosition&) = delete;

 private:
  internal::RowSource& rows_;
  bool isBeforeFirst_;
  std::int64_t position_ = -1;
};

}  // namespace

void Recordset::Save(std::string_view path) {
  if (opened().mode != EditMode::None) Update();
  const auto store = recordsetStore();
  const std::filesystem::path file = hostPath(path);
  Opened& open = opened();
  open.connection->keepingErrors([&] {
    const bool isHeld = open.rows->count() >= 0;
    RowsToSave rows(*open.rows, open.cursor->columns(), isHeld ? open.origins : open.cursor->origins());
    std::optional<KeptPosition> kept;
    if (isHeld) kept.emplace(*open.rows);
    store->save(rows, file);
  });
}

}  // namespace qvn::data
