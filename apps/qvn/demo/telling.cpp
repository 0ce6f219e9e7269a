#include "apps/qvn/demo/telling.h"

#include <vector>

#include "apps/qvn/field_text.h"
#include "apps/qvn/terminal_text.h"

namespace qvn::cli::demo {

Variant readValue(const LumLibreria& library, const data::ConnectionPtr& connection, const std::string& sql) {
  return library.CreaRecordSet(sql, connection)->Fields(0).Value();
}

void showRows(std::string_view sql, const data::ConnectionPtr& connection, Context& context) {
  const auto rows = context.library.CreaRecordSet(sql, connection);
  std::vector<std::string> titles;
  for (std::size_t i = 0; i < rows->FieldCount(); ++i) titles.push_back(safeText(rows->Fields(i).Name()));
  TableWriter table(context.out, titles, kIndent);
  for (; !rows->Eof(); rows->MoveNext()) {
    std::vector<Cell> cells;
    for (std::size_t i = 0; i < titles.size(); ++i) cells.push_back(fieldCell(rows->Fields(i)));
    table.add(std::move(cells));
  }
  table.end();
}

}  // namespace qvn::cli::demo
