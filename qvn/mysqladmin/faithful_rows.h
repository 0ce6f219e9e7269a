// The rows of tables as INSERT statements.
#pragma once

#include <string>

#include "qvn/data/connection.h"
#include "qvn/mysqladmin/backup_report.h"
#include "qvn/mysqladmin/dump_writer.h"
#include "qvn/mysqladmin/transfer.h"

namespace qvn::mysqladmin {

/// Writes one table after the other and counts in `report`. What it is given must outlive it.
class RowTransfer {
 public:
  RowTransfer(DumpWriter& writer, const data::ConnectionPtr& connection, const TransferObserver& observe,
              BackupReport& report);

  /// Rows that are still to come, for the progress.
  void expect(std::int64_t rows) { expected_ += rows; }

  /// Streams the rows of a table of the session's database into statements that the server accepts. Stops, with
  /// BackupReport::wasInterrupted, when the observer says so. Throws ProviderError and RuntimeError.
  void writeRows(const std::string& table);

 private:
  void addRow();
  void endStatement();
  [[nodiscard]] bool isInterrupted(const std::string& table);

  DumpWriter& writer_;
  const data::ConnectionPtr& connection_;
  const TransferObserver& observe_;
  BackupReport& report_;
  std::int64_t expected_ = 0;
  std::size_t longest_;  // bytes of a statement
  std::string start_;    // of each statement of the table
  std::string row_;
  std::size_t size_ = 0;  // of the statement that is being written; 0 for none
};

}  // namespace qvn::mysqladmin
