#include "qvn/data/drivers/firebird/firebird_cursor.h"

#include <cstring>
#include <utility>

#include "qvn/data/drivers/firebird/firebird_blob.h"
#include "qvn/data/drivers/firebird/firebird_value.h"
#include "qvn/data/drivers/firebird/table_keys.h"

namespace qvn::data::firebird {
namespace {

ISC_QUAD blobId(const unsigned char* row, const Cell& cell) {
  ISC_QUAD id;
  std::memcpy(&id, row + cell.offset, sizeof(id));
  return id;
}

}  // namespace

FirebirdCursor::FirebirdCursor(FirebirdLink& link, StatementRows rows, ResultSetHandle resultSet)
    : link_(link),
      rows_(std::move(rows)),
      resultSet_(std::move(resultSet)),
      shape_(rowShape(link, *rows_.metadata)),
      message_(shape_.messageLength) {
  hasRow_ = fetch();
}

FirebirdCursor::FirebirdCursor(FirebirdLink& link, StatementRows rows, std::vector<unsigned char> message)
    : link_(link),
      rows_(std::move(rows)),
      shape_(rowShape(link, *rows_.metadata)),
      message_(std::move(message)),
      hasRow_(true) {
  keepBlobs();
  rows_.statement.reset();
  rows_.transaction.reset();
}

std::vector<ColumnOrigin> FirebirdCursor::origins() { return columnOrigins(link_, *rows_.metadata); }

bool FirebirdCursor::next() {
  if (std::exchange(isFirst_, false)) return hasRow_;
  hasRow_ = resultSet_ != nullptr && fetch();
  return hasRow_;
}

bool FirebirdCursor::fetch() {
  const int code = resultSet_->fetchNext(link_.status(), message_.data());
  if (code == Firebird::IStatus::RESULT_OK) return true;
  if (code == Firebird::IStatus::RESULT_NO_DATA) {
    finish(Outcome::Done);
    return false;
  }
  finish(Outcome::Failed);
  link_.check();
  return false;
}

void FirebirdCursor::finish(Outcome outcome) {
  resultSet_.reset();
  rows_.statement.reset();
  const std::shared_ptr<Transaction> transaction = std::move(rows_.transaction);
  if (!transaction->isLeftToCursors() || transaction.use_count() > 1) return;
  if (outcome == Outcome::Done) {
    transaction->commit();
  } else {
    transaction->abandon();
  }
}

void FirebirdCursor::read(std::size_t column, Variant& value) {
  const Cell& cell = shape_.cells[column];
  if (isNull(message_.data(), cell)) {
    value = Null{};
  } else if (cell.kind != ValueKind::Blob) {
    readValue(message_.data(), cell, value);
  } else if (!blobs_.empty()) {
    value.assignText(blobs_[column]);
  } else {
    value.assignText(readBlob(link_, *rows_.transaction, blobId(message_.data(), cell), buffer_));
  }
}

void FirebirdCursor::keepBlobs() {
  for (std::size_t i = 0; i < shape_.cells.size(); ++i) {
    const Cell& cell = shape_.cells[i];
    if (cell.kind != ValueKind::Blob || isNull(message_.data(), cell)) continue;
    blobs_.resize(shape_.cells.size());
    blobs_[i] = readBlob(link_, *rows_.transaction, blobId(message_.data(), cell), buffer_);
  }
}

}  // namespace qvn::data::firebird
