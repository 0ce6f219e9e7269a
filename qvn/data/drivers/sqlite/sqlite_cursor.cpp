#include "qvn/data/drivers/sqlite/sqlite_cursor.h"

#include <cmath>
#include <limits>
#include <string_view>

#include "qvn/base/letter_case.h"
#include "qvn/data/drivers/sqlite/declared_type.h"
#include "qvn/data/drivers/sqlite/sqlite_error.h"
#include "qvn/data/drivers/sqlite/sqlite_literal.h"
#include "qvn/data/iso_date.h"

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

std::string_view textOf(sqlite3_value* cell) {
  // In this order: the first call may convert the text, the second one then tells its length in UTF-8.
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(cell));
  return {text == nullptr ? "" : text, static_cast<std::size_t>(sqlite3_value_bytes(cell))};
}

std::string_view bytesOf(sqlite3_value* cell) {
  const auto* bytes = static_cast<const char*>(sqlite3_value_blob(cell));
  return {bytes == nullptr ? "" : bytes, static_cast<std::size_t>(sqlite3_value_bytes(cell))};
}

template <typename Whole>
bool fits(std::int64_t number) {
  return number >= std::numeric_limits<Whole>::min() && number <= std::numeric_limits<Whole>::max();
}

// The narrowest type from the declared one up, since the engine stores whole numbers of any size in any column.
void readWhole(std::int64_t number, FieldType type, Variant& value) {
  switch (type) {
    case FieldType::BigInt:
      value = number;
      return;
    case FieldType::Double:
      value = static_cast<double>(number);
      return;
    case FieldType::Boolean:
      value = number != 0;
      return;
    case FieldType::Numeric:
      value = Decimal::fromInteger(number);
      return;
    case FieldType::Currency:
      if (!fits<std::int32_t>(number)) break;
      value = Currency::fromScaled(number * Currency::kScale);
      return;
    case FieldType::SmallInt:
    case FieldType::TinyInt:
      if (!fits<std::int16_t>(number)) break;
      value = static_cast<std::int16_t>(number);
      return;
    default:
      break;
  }
  if (fits<std::int32_t>(number)) {
    value = static_cast<std::int32_t>(number);
  } else {
    value = number;
  }
}

void readReal(double number, FieldType type, Variant& value) {
  // Infinities and amounts beyond the exact types stay Doubles.
  constexpr double kLargestNumeric = 1e60;
  constexpr double kLargestCurrency = 9e14;
  const double size = std::abs(number);
  if (type == FieldType::Numeric && size < kLargestNumeric) {
    value = Decimal::fromDouble(number);
  } else if (type == FieldType::Currency && size < kLargestCurrency) {
    value = Currency::fromDouble(number);
  } else {
    value = number;
  }
}

void readText(std::string_view text, FieldType type, Variant& value) {
  switch (type) {
    case FieldType::Date:
    case FieldType::DbTimeStamp:
    case FieldType::DbTime:
      if (const auto date = parseIsoDate(text)) {
        value = *date;
        return;
      }
      break;
    case FieldType::Numeric:
      if (auto decimal = Decimal::fromText(text)) {
        value = *std::move(decimal);
        return;
      }
      break;
    default:
      break;
  }
  value.assignText(text);
}

std::string orEmpty(const char* text) { return text == nullptr ? std::string() : std::string(text); }

}  // namespace

SqliteCursor::SqliteCursor(StatementHandle statement, bool hasRow)
    : statement_(std::move(statement)), stage_(hasRow ? Stage::FirstRowReady : Stage::Done) {
  const int count = sqlite3_column_count(statement_.get());
  columns_.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) columns_.push_back(describe(statement_.get(), i));
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
  const FieldType type = columns_[column].type;
  switch (sqlite3_value_type(cell)) {
    case SQLITE_INTEGER:
      readWhole(sqlite3_value_int64(cell), type, value);
      break;
    case SQLITE_FLOAT:
      readReal(sqlite3_value_double(cell), type, value);
      break;
    case SQLITE_NULL:
      value = Null{};
      break;
    case SQLITE_BLOB:
      value.assignText(bytesOf(cell));
      break;
    default:
      readText(textOf(cell), type, value);
      break;
  }
}

std::vector<ColumnOrigin> SqliteCursor::origins() {
  sqlite3_stmt* statement = statement_.get();
  sqlite3* database = sqlite3_db_handle(statement);
  std::vector<ColumnOrigin> origins(columns_.size());
  for (std::size_t i = 0; i < origins.size(); ++i) {
    const int index = static_cast<int>(i);
    const std::string schema = orEmpty(sqlite3_column_database_name(statement, index));
    const std::string table = orEmpty(sqlite3_column_table_name(statement, index));
    const std::string column = orEmpty(sqlite3_column_origin_name(statement, index));
    if (table.empty() || column.empty()) continue;
    const char* declaration = nullptr;
    int isKey = 0;
    int isAutoNumber = 0;
    sqlite3_table_column_metadata(database, schema.c_str(), table.c_str(), column.c_str(), &declaration, nullptr,
                                  nullptr, &isKey, &isAutoNumber);
    // A key declared just INTEGER numbers its rows even without AUTOINCREMENT.
    const bool isRowNumber = isKey != 0 && declaration != nullptr && equalIgnoringCase(declaration, "INTEGER");
    origins[i] = {quoteName(schema) + "." + quoteName(table), quoteName(column), isKey != 0,
                  isAutoNumber != 0 || isRowNumber};
  }
  return origins;
}

}  // namespace qvn::data::sqlite
