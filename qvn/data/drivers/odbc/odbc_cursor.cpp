#include "qvn/data/drivers/odbc/odbc_cursor.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "qvn/data/drivers/odbc/odbc_origin.h"
#include "qvn/data/drivers/odbc/odbc_value.h"

namespace qvn::data::odbc {
namespace {

constexpr SQLULEN kMostRowsInBlock = 128;
constexpr SQLULEN kMostBytesInBlock = 1 << 20;
constexpr std::string_view kDoing = "No se pudo leer el siguiente registro";

SQLUSMALLINT ordinal(std::size_t column) { return static_cast<SQLUSMALLINT>(column + 1); }

}  // namespace

OdbcCursor::OdbcCursor(OdbcLink& link, StatementHandle statement, std::string_view sql)
    : link_(link), statement_(std::move(statement)), sql_(sql) {
  for (DescribedColumn& described : describeColumns(statement_.get(), link_.engine())) {
    columns_.push_back(std::move(described.column));
    transfers_.push_back(described.transfer);
  }
  bindColumns();
  link_.setReader(this);
  try {
    hasRow_ = fetchRow();
  } catch (const ProviderError&) {
    link_.setReader(nullptr);
    throw;
  }
}

OdbcCursor::~OdbcCursor() { finish(); }

void OdbcCursor::bindColumns() {
  SQLHSTMT statement = statement_.get();
  const auto firstLong = std::ranges::find(transfers_, SQLULEN{0}, &Transfer::size);
  firstLong_ = static_cast<std::size_t>(firstLong - transfers_.begin());
  SQLULEN rowBytes = 1;
  for (std::size_t i = 0; i < firstLong_; ++i) rowBytes += transfers_[i].size + sizeof(SQLLEN);
  const bool hasLong = firstLong_ < transfers_.size();
  blockRows_ = hasLong ? 1 : std::clamp<SQLULEN>(kMostBytesInBlock / rowBytes, 1, kMostRowsInBlock);
  const bool takesBlocks =
      SQL_SUCCEEDED(SQLSetStmtAttr(statement, SQL_ATTR_ROWS_FETCHED_PTR, fetched_.get(), 0)) &&
      SQL_SUCCEEDED(SQLSetStmtAttr(statement, SQL_ATTR_ROW_ARRAY_SIZE, attributeValue(blockRows_), 0));
  if (!takesBlocks) blockRows_ = 1;
  buffers_.resize(columns_.size());
  for (std::size_t i = 0; i < firstLong_; ++i) {
    Buffer& buffer = buffers_[i];
    buffer.bytes.resize(transfers_[i].size * blockRows_);
    buffer.sizes.resize(blockRows_);
    SQLBindCol(statement, ordinal(i), transfers_[i].type, buffer.bytes.data(), static_cast<SQLLEN>(transfers_[i].size),
               buffer.sizes.data());
  }
}

bool OdbcCursor::fetchBlock() {
  *fetched_ = 1;  // a driver that knows no blocks leaves it
  at_ = 0;
  const SQLRETURN result = SQLFetch(statement_.get());
  if (result == SQL_NO_DATA || (SQL_SUCCEEDED(result) && *fetched_ == 0)) return false;
  if (!SQL_SUCCEEDED(result)) throw link_.statementError(statement_.get(), kDoing);
  if (firstLong_ < columns_.size()) fetchLongValues();
  return true;
}

bool OdbcCursor::fetchRow() {
  if (++at_ < *fetched_) return true;
  const bool hasRow = fetchBlock();
  if (!hasRow) finish();
  return hasRow;
}

void OdbcCursor::fetchLongValues() {
  for (std::size_t i = firstLong_; i < columns_.size(); ++i) {
    buffers_[i].sizes.assign(1, fetchLong(i) ? 0 : SQL_NULL_DATA);
  }
}

bool OdbcCursor::fetchLong(std::size_t column) {
  const Transfer& transfer = transfers_[column];
  std::string& text = buffers_[column].longValue;
  text.clear();
  std::array<char, 32768> piece;
  const std::size_t room = piece.size() - (transfer.type == SQL_C_CHAR ? 1 : 0);
  while (true) {
    SQLLEN size = 0;
    const SQLRETURN result = SQLGetData(statement_.get(), ordinal(column), transfer.type, piece.data(),
                                        static_cast<SQLLEN>(piece.size()), &size);
    if (result == SQL_NO_DATA) return true;
    if (!SQL_SUCCEEDED(result)) throw link_.statementError(statement_.get(), kDoing);
    if (size == SQL_NULL_DATA) return false;
    const bool isWhole = result == SQL_SUCCESS;
    std::size_t length =
        isWhole || (size >= 0 && static_cast<std::size_t>(size) < room) ? static_cast<std::size_t>(size) : room;
    // A piece may end before a character that has no room any more.
    if (!isWhole && transfer.type == SQL_C_CHAR) length = std::min(length, std::string_view(piece.data()).size());
    text.append(piece.data(), std::min(length, piece.size()));
    if (isWhole) return true;
    if (size > 0) text.reserve(text.size() + static_cast<std::size_t>(size));
  }
}

bool OdbcCursor::next() {
  if (std::exchange(isFirst_, false)) return hasRow_;
  if (isReading()) {
    hasRow_ = false;
    try {
      hasRow_ = fetchRow();
    } catch (const ProviderError&) {
      finish();
      throw;
    }
    return hasRow_;
  }
  if (!held_.empty()) held_.pop_front();
  hasRow_ = !held_.empty();
  if (!hasRow_ && failure_) throw *std::exchange(failure_, std::nullopt);
  return hasRow_;
}

void OdbcCursor::read(std::size_t column, Variant& value) {
  if (held_.empty()) {
    readFetched(column, value);
  } else {
    value = held_.front()[column];
  }
}

void OdbcCursor::readFetched(std::size_t column, Variant& value) const {
  const Buffer& buffer = buffers_[column];
  const Transfer& transfer = transfers_[column];
  const SQLLEN size = buffer.sizes[transfer.size == 0 || column >= firstLong_ ? 0 : at_];
  if (size == SQL_NULL_DATA) {
    value = Null{};
  } else if (column >= firstLong_) {
    readValue(buffer.longValue, transfer, columns_[column].type, value);
  } else {
    const auto length = static_cast<std::size_t>(std::clamp<SQLLEN>(size, 0, static_cast<SQLLEN>(transfer.size)));
    readValue({buffer.bytes.data() + at_ * transfer.size, length}, transfer, columns_[column].type, value);
  }
}

OdbcCursor::HeldRow OdbcCursor::currentRow() const {
  HeldRow row(columns_.size());
  for (std::size_t i = 0; i < row.size(); ++i) readFetched(i, row[i]);
  return row;
}

void OdbcCursor::releaseLink() noexcept {
  try {
    // The first row counts as current although next() has not been called for it.
    for (bool hasRow = hasRow_; hasRow; hasRow = fetchRow()) held_.push_back(currentRow());
  } catch (const ProviderError& error) {
    failure_ = error;
  }
  finish();
}

void OdbcCursor::finish() noexcept {
  if (!isReading()) return;
  // Results that follow are read and dropped: their statements must not be left half done.
  while (SQL_SUCCEEDED(SQLMoreResults(statement_.get()))) {
  }
  SQLFreeStmt(statement_.get(), SQL_CLOSE);
  link_.setReader(nullptr);
}

std::vector<ColumnOrigin> OdbcCursor::origins() {
  std::vector<ColumnOrigin> origins = statedOrigins(link_, statement_.get(), columns_, sql_);
  if (isReading()) releaseLink();
  markKeys(link_, origins);
  return origins;
}

}  // namespace qvn::data::odbc
