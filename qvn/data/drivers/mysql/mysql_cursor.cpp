#include "qvn/data/drivers/mysql/mysql_cursor.h"

#include <span>
#include <utility>

#include "qvn/data/drivers/mysql/mysql_value.h"

namespace qvn::data::mysql {
namespace {

std::span<const MYSQL_FIELD> fieldsOf(const ResultHandle& result) {
  return {mysql_fetch_fields(result.get()), mysql_num_fields(result.get())};
}

}  // namespace

MysqlCursor::MysqlCursor(MysqlLink& link, ResultHandle result, AnswerWait& wait)
    : link_(link), wasInTransaction_(link.isInTransaction()), result_(std::move(result)) {
  for (const MYSQL_FIELD& field : fieldsOf(result_)) {
    columns_.push_back(describeColumn(field));
    kinds_.push_back(columnKind(field).kind);
  }
  row_.resize(columns_.size());
  link_.setReader(this);
  take(wait.run<MYSQL_ROW>(
      [&](MYSQL_ROW* row) { return mysql_fetch_row_start(row, result_.get()); },
      [&](MYSQL_ROW* row, int events) { return mysql_fetch_row_cont(row, result_.get(), events); }));
  if (failure_) throw *std::move(failure_);
}

MysqlCursor::~MysqlCursor() {
  if (!isReading()) return;
  result_.reset();
  // Nobody is left to hear of an error, unless it is one that the next statement must know; a broken connection fails
  // that one by itself.
  finishReading();
  keepLostTransaction();
}

std::vector<ColumnOrigin> MysqlCursor::origins() {
  std::vector<ColumnOrigin> origins;
  for (const MYSQL_FIELD& field : fieldsOf(result_)) origins.push_back(columnOrigin(field));
  return origins;
}

bool MysqlCursor::next() {
  if (std::exchange(isFirst_, false)) return hasRow_;
  if (isReading()) {
    take(mysql_fetch_row(result_.get()));
  } else {
    hasRow_ = unread_.next(row_);
  }
  if (!hasRow_ && failure_) throw *std::exchange(failure_, std::nullopt);
  return hasRow_;
}

void MysqlCursor::read(std::size_t column, Variant& value) { readValue(kinds_[column], row_[column], value); }

void MysqlCursor::releaseLink() {
  // While rows are on their way there is a current row, which must stay readable.
  for (; hasRow_; take(mysql_fetch_row(result_.get()))) unread_.append(row_);
  hasRow_ = unread_.next(row_);
  keepLostTransaction();
}

void MysqlCursor::take(MYSQL_ROW row) {
  hasRow_ = row != nullptr;
  if (!hasRow_) {
    finishReading();
    return;
  }
  const unsigned long* const lengths = mysql_fetch_lengths(result_.get());
  for (std::size_t i = 0; i < row_.size(); ++i) {
    row_[i] = row[i] == nullptr ? std::string_view() : std::string_view(row[i], lengths[i]);
  }
}

void MysqlCursor::finishReading() {
  const bool isSound = mysql_errno(link_.handle()) == 0 && link_.dropFurtherResults();
  link_.setReader(nullptr);
  if (!isSound) failure_ = link_.lastError();
}

void MysqlCursor::keepLostTransaction() {
  if (wasInTransaction_ && failure_) link_.keepLostTransaction(*failure_);
}

}  // namespace qvn::data::mysql
