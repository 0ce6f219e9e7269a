#include "qvn/data/drivers/sqlite/sqlite_cursor.h"

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

std::string_view textAt(sqlite3_stmt* statement, int index) {
  // In this order: the first call may convert the text, the second one then tells its length in UTF-8.
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, index));
  return {text == nullptr ? "" : text, static_cast<std::size_t>(sqlite3_column_bytes(statement, index))};
}

std::string_view bytesAt(sqlite3_stmt* statement, int index) {
  const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, index));
  return {bytes == nullptr ? "" : bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement, index))};
}

template <typename Whole>
bool fits(std::int64_t number) {
  return number >= std::numeric_limits<Whole>::min() && number <= std::numeric_limits<Whole>::max();
}

// The narrowest type from the declared one up, since the engine stores whole numbers of any size in any column.
void readWhole(std::int64_t number, FieldType type, Variant& value) {
  if (type == FieldType::Boolean) {
    value = number != 0;
  } else if (type == FieldType::Numeric) {
    value = Decimal::fromInteger(number);
  } else if (type == FieldType::Double) {
    value = static_cast<double>(number);
  } else if (type == FieldType::Currency && fits<std::int32_t>(number)) {
    value = Currency::fromScaled(number * Currency::kScale);
  } else if ((type == FieldType::SmallInt || type == FieldType::TinyInt) && fits<std::int16_t>(number)) {
    value = static_cast<std::int16_t>(number);
  } else if (type != FieldType::BigInt && fits<std::int32_t>(number)) {
    value = static_cast<std::int32_t>(number);
  } else {
    value = number;
  }
}

void readReal(double number, FieldType type, Variant& value) {
  // Infinities and amounts beyond the exact types stay Doubles.
  constexpr double kLargestCurrency = 9e14;
  if (type == FieldType::Numeric && number > -1e60 && number < 1e60) {
    value = Decimal::fromDouble(number);
  } else if (type == FieldType::Currency && number > -kLargestCurrency && number < kLargestCurrency) {
    value = Currency::fromDouble(number);
  } else {
    value = number;
  }
}

void readText(std::string_view text, FieldType type, Variant& value) {
  const bool isDate = type == FieldType::Date || type == FieldType::DbTimeStamp || type == FieldType::DbTime;
  if (isDate) {
    if (const auto date = parseIsoDate(text)) {
      value = *date;
      return;
    }
  }
  if (type == FieldType::Numeric) {
    if (auto decimal = Decimal::fromText(text)) {
      value = *std::move(decimal);
      return;
    }
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
  const int index = static_cast<int>(column);
  sqlite3_stmt* statement = statement_.get();
  const FieldType type = columns_[column].type;
  switch (sqlite3_column_type(statement, index)) {
    case SQLITE_INTEGER:
      readWhole(sqlite3_column_int64(statement, index), type, value);
      break;
    case SQLITE_FLOAT:
      readReal(sqlite3_column_double(statement, index), type, value);
      break;
    case SQLITE_NULL:
      value = Null{};
      break;
    case SQLITE_BLOB:
      value.assignText(bytesAt(statement, index));
      break;
    default:
      readText(textAt(statement, index), type, value);
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
