#include "qvn/mysqladmin/faithful_rows.h"

#include <algorithm>
#include <vector>

#include "qvn/mysqladmin/faithful_value.h"
#include "qvn/mysqladmin/schema.h"
#include "qvn/mysqladmin/session_settings.h"

namespace qvn::mysqladmin {
namespace {

// As long as makes the server's work per statement small beside that per row.
constexpr std::int64_t kUsualBytes = std::int64_t{1000} * 1000;
constexpr std::int64_t kRowsBetweenReports = 1024;

}  // namespace

RowTransfer::RowTransfer(DumpWriter& writer, const data::ConnectionPtr& connection, const TransferObserver& observe,
                         BackupReport& report)
    : writer_(writer), connection_(connection), observe_(observe), report_(report) {
  const auto packet = connection->Execute("SELECT @@max_allowed_packet")->Fields(0).Value().toLongLong();
  longest_ = static_cast<std::size_t>(std::min(kUsualBytes, packet * 3 / 4));
}

void RowTransfer::writeRows(const std::string& table) {
  const std::vector<DatabaseColumn> columns = readColumns(table, connection_);
  start_ = "INSERT INTO " + quotedName(table) + " (";
  std::string select = "SELECT ";
  for (std::size_t i = 0; i < columns.size(); ++i) {
    start_.append(i == 0 ? "" : ", ").append(quotedName(columns[i].name));
    select.append(i == 0 ? "" : ", ").append(columns[i].expression);
  }
  start_.append(") VALUES\n");
  data::Recordset rows;
  rows.setCursorLocation(data::CursorLocation::Server);
  rows.Open(select + " FROM " + quotedName(table), connection_);
  std::vector<const data::Field*> fields;
  for (std::size_t i = 0; i < columns.size(); ++i) fields.push_back(&rows.Fields(i));
  for (; !rows.Eof(); rows.MoveNext()) {
    row_ = "(";
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (i > 0) row_.push_back(',');
      appendFaithfully(fields[i]->Value(), columns[i].form, row_);
    }
    row_.push_back(')');
    addRow();
    if (isInterrupted(table)) return;
  }
  endStatement();
}

void RowTransfer::addRow() {
  static constexpr std::string_view kSeparator = ",\n";
  if (size_ > 0 && size_ + kSeparator.size() + row_.size() >= longest_) endStatement();
  const std::string_view before = size_ == 0 ? std::string_view(start_) : kSeparator;
  writer_ << before << row_;
  size_ += before.size() + row_.size();
  ++report_.rows;
}

void RowTransfer::endStatement() {
  if (size_ == 0) return;
  writer_ << ";\n";
  report_.longestStatement = std::max(report_.longestStatement, static_cast<std::int64_t>(size_));
  size_ = 0;
}

bool RowTransfer::isInterrupted(const std::string& table) {
  if (!observe_ || report_.rows % kRowsBetweenReports != 0) return false;
  report_.wasInterrupted = !observe_(
      {.table = table, .rows = report_.rows, .bytes = writer_.bytes(), .done = report_.rows, .total = expected_});
  return report_.wasInterrupted;
}

}  // namespace qvn::mysqladmin
