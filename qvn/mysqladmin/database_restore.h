// Replaying a dump against a connection.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "qvn/data/connection.h"
#include "qvn/mysqladmin/statement_reader.h"
#include "qvn/mysqladmin/transfer.h"

namespace qvn::mysqladmin {

/// What ended a restore.
struct RestoreFailure {
  std::int64_t line = 0;  ///< of the file, where the statement begins; 0 when the file could not be opened
  std::string statement;  ///< its beginning; "" when reading failed
  std::int32_t number = 0;
  std::string reason;
};

struct RestoreReport {
  std::int64_t statements = 0;  ///< that were run
  std::int64_t bytes = 0;       ///< of their text
  std::optional<RestoreFailure> failure;
  std::string unfinished;  ///< beginning of a last statement without its end, which was not run
  bool wasInterrupted = false;

  [[nodiscard]] bool isComplete() const { return !failure && unfinished.empty() && !wasInterrupted; }
};

/// Runs the statements of a dump of DatabaseBackup one after the other, read by lines (readByLines). Memory grows with
/// the longest statement only. The first error ends it, that of a missing file included, and is told by the report
/// alone; what ran before stays. docs/backup.md says which dumps of other tools these rules can read.
RestoreReport DatabaseRestore(std::string_view strFileName, const data::ConnectionPtr& conn,
                              const TransferOptions& options = {});

struct GrammarRestoreOptions {
  TransferOptions transfer = {.hasFormats = true};
  bool keepsDatabase = false;  ///< passes over the statements that drop, create or choose a database
};

/// The same for the faithful dumps of this library and those of other tools, read by the grammar of the language
/// (readByGrammar). An INSERT longer than the server accepts is run in pieces. The settings of the session that a dump
/// changes are put back afterwards, what a failed dump left in a transaction is rolled back, and statements may take as
/// long as they need.
RestoreReport restoreByGrammar(std::string_view path, const data::ConnectionPtr& connection,
                               const GrammarRestoreOptions& options = {});

/// True for a statement that drops, creates or chooses a database, also inside of a comment that servers execute.
bool concernsDatabase(std::string_view statement);

}  // namespace qvn::mysqladmin
