// The rows under a recordset: streamed from the driver, or all of them held.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "qvn/data/driver.h"

namespace qvn::data::internal {

/// A position among rows. It starts on the first row. After removeCurrent() it stands between two rows: there is no
/// current row until the next move.
class RowSource {
 public:
  virtual ~RowSource() = default;
  [[nodiscard]] virtual bool isBeforeFirst() const = 0;
  // Asked twice for every row, and so no call of its own.
  [[nodiscard]] bool isAfterLast() const { return isAfterLast_; }
  [[nodiscard]] virtual bool hasRow() const = 0;
  /// Number of rows, -1 when it is not known.
  [[nodiscard]] virtual std::int64_t count() const = 0;
  /// From 1; -1 when there is no row or it is not known.
  [[nodiscard]] virtual std::int64_t position() const = 0;

  virtual void next() = 0;
  // Throw ProviderError kNotSupported where rows are streamed.
  virtual void previous() = 0;
  virtual void first() = 0;
  virtual void last() = 0;

  /// A value of the current row, good until the next move; null when there is no row.
  virtual const Variant* value(std::size_t column) = 0;
  /// What the row holds from now on, after it was saved.
  virtual void assign(std::size_t column, Variant value) = 0;
  /// Takes in a row that was inserted; a held one becomes the current row.
  virtual void append(std::vector<Variant> row) = 0;
  virtual void removeCurrent() = 0;

 protected:
  bool isAfterLast_ = false;
};

/// Reads one row at a time; stands on the first one when it returns. The cursor must outlive the rows.
std::unique_ptr<RowSource> streamRows(Cursor& cursor);

/// Reads all rows now.
std::unique_ptr<RowSource> holdRows(Cursor& cursor);

}  // namespace qvn::data::internal
