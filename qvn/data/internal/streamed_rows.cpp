#include "qvn/data/internal/row_source.h"
#include "qvn/data/provider_error.h"

namespace qvn::data::internal {
namespace {

[[noreturn]] void refuseMove() {
  throw ProviderError(provider_number::kNotSupported,
                      "Este conjunto de registros sólo avanza; ábralo con cursor en el cliente para moverse en él");
}

class StreamedRows final : public RowSource {
 public:
  explicit StreamedRows(Cursor& cursor) : cursor_(cursor), cells_(cursor.columns().size()) {
    hasRow_ = cursor_.next();
    isEmpty_ = !hasRow_;
    isAfterLast_ = !hasRow_;
  }

  [[nodiscard]] bool isBeforeFirst() const override { return isEmpty_; }
  [[nodiscard]] bool hasRow() const override { return hasRow_; }
  [[nodiscard]] std::int64_t count() const override { return -1; }
  [[nodiscard]] std::int64_t position() const override { return -1; }

  void next() override {
    ++row_;
    hasRow_ = false;
    isAfterLast_ = true;  // also when the step throws
    hasRow_ = cursor_.next();
    isAfterLast_ = !hasRow_;
  }
  void previous() override { refuseMove(); }
  void first() override { refuseMove(); }
  void last() override { refuseMove(); }

  const Variant* value(std::size_t column) override {
    if (!hasRow_) return nullptr;
    Cell& cell = cells_[column];
    if (cell.row != row_) {
      cursor_.read(column, cell.value);
      cell.row = row_;
    }
    return &cell.value;
  }
  void assign(std::size_t column, Variant value) override { cells_[column] = {std::move(value), row_}; }
  void append(std::vector<Variant> /*row*/) override {}
  void removeCurrent() override { hasRow_ = false; }

 private:
  // A value and the number of the row it was read in; values are read when they are asked for.
  struct Cell {
    Variant value;
    std::uint64_t row = 0;
  };

  Cursor& cursor_;
  std::vector<Cell> cells_;
  std::uint64_t row_ = 1;
  bool hasRow_ = false;
  bool isEmpty_ = false;
};

}  // namespace

std::unique_ptr<RowSource> streamRows(Cursor& cursor) { return std::make_unique<StreamedRows>(cursor); }

}  // namespace qvn::data::internal
