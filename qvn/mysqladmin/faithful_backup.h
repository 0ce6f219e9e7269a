// A dump from which a MySQL database comes back exactly as it was.
#pragma once

#include <string_view>

#include "qvn/base/clock.h"
#include "qvn/data/connection.h"
#include "qvn/mysqladmin/backup_report.h"
#include "qvn/mysqladmin/transfer.h"

namespace qvn::mysqladmin {

/// Writes the session's database: tables with all their rows, sequences, views and triggers, in statements that
/// restoreByGrammar and the engine's own client run. Nulls, line ends, decimals, bytes and dates of zero are kept; an
/// INSERT stays below a megabyte and below what the server accepts, unless a single row is longer.
///
/// Everything is of one moment: tables that have snapshots are read in one; when there is any other, all are locked
/// against writing meanwhile. Rows are streamed. A file whose name ends in ".gz" or ".zst" is compressed. The file
/// takes the place of an older one only when it is complete, and its owner alone can read it. Routines, events, and the
/// history of versioned tables are not written; a view that cannot be read is left out and told in the report.
///
/// @throws ProviderError  the server refused or was lost; an older file stays as it was, as with the next
/// @throws RuntimeError   what the system refuses (52 to 76); 91 without a connection; 5 when the session has no
/// database
BackupReport backupFaithfully(std::string_view path, const data::ConnectionPtr& connection, Clock& clock,
                              const TransferObserver& observe = nullptr);

}  // namespace qvn::mysqladmin
