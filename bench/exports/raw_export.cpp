#include "bench/exports/raw_export.h"

#include <sqlite3.h>
#include <xlsxwriter.h>

#include <cstdlib>

namespace qvn::bench {
namespace {

void require(bool isDone) {
  if (!isDone) std::abort();
}

const char* textOf(sqlite3_stmt* rows, int column) {
  return reinterpret_cast<const char*>(sqlite3_column_text(rows, column));
}

lxw_format* formatOf(lxw_workbook* workbook, const char* pattern) {
  lxw_format* const format = workbook_add_format(workbook);
  format_set_num_format(format, pattern);
  return format;
}

void writeRows(sqlite3_stmt* rows, lxw_workbook* workbook) {
  lxw_format* const whole = formatOf(workbook, "0");
  lxw_format* const date = formatOf(workbook, "dd/mm/yyyy");
  lxw_format* const text = formatOf(workbook, "@");
  lxw_format* const amount = formatOf(workbook, "#,##0.00");
  lxw_worksheet* const sheet = workbook_add_worksheet(workbook, nullptr);
  constexpr int kColumns = 5;
  for (lxw_col_t i = 0; i < kColumns; ++i) {
    worksheet_write_string(sheet, 0, i, sqlite3_column_name(rows, i), text);
  }
  for (lxw_row_t row = 1; sqlite3_step(rows) == SQLITE_ROW; ++row) {
    worksheet_write_number(sheet, row, 0, sqlite3_column_double(rows, 0), whole);
    worksheet_write_number(sheet, row, 1, sqlite3_column_double(rows, 1), date);
    worksheet_write_string(sheet, row, 2, textOf(rows, 2), text);
    worksheet_write_string(sheet, row, 3, textOf(rows, 3), text);
    worksheet_write_number(sheet, row, 4, sqlite3_column_double(rows, 4), amount);
  }
}

}  // namespace

void exportRaw(const std::string& database, const std::string& query, const std::string& file) {
  sqlite3* session = nullptr;
  require(sqlite3_open_v2(database.c_str(), &session, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr) ==
          SQLITE_OK);
  sqlite3_stmt* rows = nullptr;
  require(sqlite3_prepare_v2(session, query.c_str(), -1, &rows, nullptr) == SQLITE_OK);
  lxw_workbook_options options{};
  options.constant_memory = LXW_TRUE;
  lxw_workbook* const workbook = workbook_new_opt(file.c_str(), &options);
  writeRows(rows, workbook);
  require(workbook_close(workbook) == LXW_NO_ERROR);
  sqlite3_finalize(rows);
  sqlite3_close(session);
}

}  // namespace qvn::bench
