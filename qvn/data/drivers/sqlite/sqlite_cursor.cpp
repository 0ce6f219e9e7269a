#include "qvn/data/drivers/sqlite/sqlite_cursor.h"

#include <string_view>

#include "qvn/base/letter_case.h"
#include "qvn/data/drivers/sqlite/declared_type.h"
#include "qvn/data/drivers/sqlite/sqlite_error.h"
#include "qvn/data/drivers/sqlite/sqlite_literal.h"
#include "qvn/data/drivers/sqlite/sqlite_value.h"

namespace qvn::data::sqlite {
namespace {

FieldType typeOfValue(int storageClass) {
  switch (storageClass) {
    case SQLITE_INTEGER:
      return FieldType::BigInt;
    case SQLITE_FLOAT:
      return FieldType::Double;
    case SQLITE_BLOB:
      return FieldType::LongVarBinary;
    default:
      return FieldType::VarWChar;
  }
}

Column describe(sqlite3_stmt* statement, int index) {
  Column column;
  column.name = sqlite3_column_name(statement, index);
  if (const char* declaration = sqlite3_column_decltype(statement, index)) {
    applyDeclaredType(declaration, column);
  } else {
    column.type = typeOfValue(sqlite3_column_type(statement, index));
  }
  return column;
}

}  // namespace

SqliteCursor::SqliteCursor(CachedStatement statement, bool hasRow)
    : statement_(std::move(statement)), stage_(hasRow ? Stage::FirstRowReady : Stage::Done) {
  const int count = sqlite3_column_count(statement_.get());
  columns_.reserve(static_cast<std::size_t>(count));
  types_.reserve(columns_.capacity());
  for (int i = 0; i < count; ++i) types_.push_back(columns_.emplace_back(describe(statement_.get(), i)).type);
  if (!hasRow) sqlite3_reset(statement_.get());
}

bool SqliteCursor::next() {
  switch (stage_) {
    case Stage::Done:
      return false;
    case Stage::FirstRowReady:
      stage_ = Stage::Reading;
      return true;
    case Stage::Reading:
      break;
  }
  const int code = sqlite3_step(statement_.get());
  if (code == SQLITE_ROW) return true;
  stage_ = Stage::Done;
  if (code == SQLITE_DONE) {
    // Frees the engine's read lock while the recordset stays open.
    sqlite3_reset(statement_.get());
    return false;
  }
  throw lastError(sqlite3_db_handle(statement_.get()), "No se pudo leer el siguiente registro");
}

void SqliteCursor::read(std::size_t column, Variant& value) {
  // Reading through the cell asks for it once. That takes a session used by one thread at a time, which it is.
  sqlite3_value* cell = sqlite3_column_value(statement_.get(), static_cast<int>(column));
  readValue(cell, types_[column], value);
}

std::vector<ColumnOrigin> SqliteCursor::origins() {
  sqlite3_stmt* statement = statement_.get();
  sqlite3* database = sqlite3_db_handle(statement);
  std::vector<ColumnOrigin> origins(columns_.size());
  for (std::size_t i = 0; i < origins.size(); ++i) {
    const int index = static_cast<int>(i);
    const char* schema = sqlite3_column_database_name(statement, index);
    const char* table = sqlite3_column_table_name(statement, index);
    const char* column = sqlite3_column_origin_name(statement, index);
    if (schema == nullptr || table == nullptr || column == nullptr) continue;
    const char* declaration = nullptr;
    int isKey = 0;
    int isAutoNumber = 0;
    sqlite3_table_column_metadata(database, schema, table, column, &declaration, nullptr, nullptr, &isKey,
                                  &isAutoNumber);
    // A key declared just INTEGER numbers its rows even without AUTOINCREMENT.
    const bool isRowNumber = isKey != 0 && declaration != nullptr && equalIgnoringCase(declaration, "INTEGER");
    origins[i] = {quoteName(schema) + "." + quoteName(table), quoteName(column), isKey != 0,
                  isAutoNumber != 0 || isRowNumber};
  }
  return origins;
}

}  // namespace qvn::data::sqlite
