#include "qvn/data/internal/row_source.h"

namespace qvn::data::internal {
namespace {

class HeldRows final : public RowSource {
 public:
  explicit HeldRows(Cursor& cursor) {
    const std::size_t columns = cursor.columns().size();
    while (cursor.next()) {
      std::vector<Variant>& row = rows_.emplace_back(columns);
      for (std::size_t i = 0; i < columns; ++i) cursor.read(i, row[i]);
    }
    jump(0);
  }

  [[nodiscard]] bool isBeforeFirst() const override { return (at_ < 0 || rows_.empty()) && !isBetween_; }
  [[nodiscard]] bool hasRow() const override { return at_ >= 0 && at_ < size() && !isBetween_; }
  [[nodiscard]] std::int64_t count() const override { return size(); }
  [[nodiscard]] std::int64_t position() const override { return hasRow() ? at_ + 1 : -1; }

  void next() override { jump(isBetween_ ? at_ : at_ + 1); }
  void previous() override { jump(at_ - 1); }
  void first() override { jump(0); }
  void last() override { jump(size() - 1); }

  const Variant* value(std::size_t column) override { return hasRow() ? &current()[column] : nullptr; }
  void assign(std::size_t column, Variant value) override { current()[column] = std::move(value); }
  void append(std::vector<Variant> row) override {
    rows_.push_back(std::move(row));
    last();
  }
  void removeCurrent() override {
    rows_.erase(rows_.begin() + at_);
    isBetween_ = true;
    isAfterLast_ = false;
  }

 private:
  [[nodiscard]] std::int64_t size() const { return static_cast<std::int64_t>(rows_.size()); }
  std::vector<Variant>& current() { return rows_[static_cast<std::size_t>(at_)]; }
  void jump(std::int64_t to) {
    at_ = to;
    isBetween_ = false;
    isAfterLast_ = at_ >= size();
  }

  std::vector<std::vector<Variant>> rows_;
  std::int64_t at_ = 0;     // -1 before the first row, size() after the last
  bool isBetween_ = false;  // the row at `at_` was removed; the one there now follows it
};

}  // namespace

std::unique_ptr<RowSource> holdRows(Cursor& cursor) { return std::make_unique<HeldRows>(cursor); }

}  // namespace qvn::data::internal
