#include "apps/qvn/row_writer.h"

#include <algorithm>
#include <array>

#include "apps/qvn/field_text.h"
#include "apps/qvn/options.h"
#include "apps/qvn/table_writer.h"
#include "apps/qvn/terminal_text.h"

namespace qvn::cli {
namespace {

constexpr auto kFormats = std::to_array<RowFormat>({
    {"tabla", [](Output& out, std::size_t widestText) { return tableRows(out, widestText); }},
    {"csv", [](Output& out, std::size_t) { return csvRows(out); }},
    {"json", [](Output& out, std::size_t) { return jsonRows(out); }},
});

class TableRows final : public RowWriter {
 public:
  TableRows(Output& out, std::size_t widestText) : out_(out), widestText_(widestText) {}

 private:
  void begin(data::Recordset& rows) override {
    std::vector<std::string> titles;
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) titles.push_back(safeText(rows.Fields(i).Name(), widestText_));
    table_ = std::make_unique<TableWriter>(out_, std::move(titles));
  }

  void add(data::Recordset& rows) override {
    std::vector<Cell> cells;
    cells.reserve(rows.FieldCount());
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) cells.push_back(fieldCell(rows.Fields(i), widestText_));
    table_->add(std::move(cells));
  }

  void end() override { table_->end(); }

  Output& out_;
  std::size_t widestText_;
  std::unique_ptr<TableWriter> table_;
};

}  // namespace

std::int64_t RowWriter::writeAll(data::Recordset& rows) {
  std::int64_t count = 0;
  begin(rows);
  for (; !rows.Eof(); rows.MoveNext(), ++count) add(rows);
  end();
  return count;
}

std::span<const RowFormat> rowFormats() { return kFormats; }

const RowFormat& rowFormat(std::optional<std::string_view> name) {
  if (!name) return kFormats.front();
  const auto* const found = std::ranges::find(kFormats, *name, &RowFormat::name);
  if (found == kFormats.end()) {
    throw UsageError("no existe el formato «" + safeText(*name) + "»; hay tabla, csv y json");
  }
  return *found;
}

std::unique_ptr<RowWriter> tableRows(Output& out, std::size_t widestText) {
  return std::make_unique<TableRows>(out, widestText);
}

}  // namespace qvn::cli
