// The rows of a recordset in one of the forms that "qvn sql" writes. Rows are written as they come; memory does not
// grow with their number.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "apps/qvn/output.h"
#include "qvn/data/recordset.h"

namespace qvn::cli {

class RowWriter {
 public:
  virtual ~RowWriter() = default;
  /// Writes the recordset from its current row to its end, and returns how many rows that were.
  std::int64_t writeAll(data::Recordset& rows);

 private:
  virtual void begin(data::Recordset& rows) = 0;
  virtual void add(data::Recordset& rows) = 0;
  virtual void end() {}
};

struct RowFormat {
  std::string_view name;
  std::unique_ptr<RowWriter> (*create)(Output& out, std::size_t widestText);
};

/// tabla, csv and json, the usual one first. `widestText` is where a table cuts its texts.
std::span<const RowFormat> rowFormats();

/// The form of that name, the usual one without a name. Throws UsageError when there is none of it.
const RowFormat& rowFormat(std::optional<std::string_view> name);

/// Aligned columns for people.
std::unique_ptr<RowWriter> tableRows(Output& out, std::size_t widestText);

/// RFC 4180: a header line, CR LF, quotes where they are needed. NULL is nothing at all, an empty text is "".
std::unique_ptr<RowWriter> csvRows(Output& out);

/// One JSON object a line. Bytes that are not UTF-8 become U+FFFD; of columns of equal names the second is "name_2".
std::unique_ptr<RowWriter> jsonRows(Output& out);

}  // namespace qvn::cli
