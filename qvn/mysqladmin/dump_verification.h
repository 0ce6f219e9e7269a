// Whether a database comes back from a dump as it is.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "qvn/data/connection.h"
#include "qvn/mysqladmin/database_restore.h"
#include "qvn/mysqladmin/transfer.h"

namespace qvn::mysqladmin {

/// What the server says of a table; -1 rows and "" for a table that is not there.
struct TableContents {
  std::int64_t rows = -1;
  std::string checksum;  ///< of CHECKSUM TABLE
  bool operator==(const TableContents&) const = default;
};

struct TableComparison {
  std::string table;
  TableContents original;
  TableContents restored;
};

struct VerificationReport {
  RestoreReport restore;
  std::vector<TableComparison> tables;  ///< of both databases, by name; empty when the restore failed

  /// The dump was restored whole, and every table is the same.
  [[nodiscard]] bool matches() const;
};

/// Restores the dump, by the grammar of the language, into a database made for it on the same server, compares each of
/// its tables with that of the session's database as it is now, and removes it. Statements of the dump that choose a
/// database are passed over; one that names another database in front of a table reaches that one. The user must be
/// allowed to make databases. Throws ProviderError and RuntimeError for what fails outside of the dump's statements.
VerificationReport verifyDump(std::string_view path, const data::ConnectionPtr& connection,
                              const TransferObserver& observe = nullptr);

}  // namespace qvn::mysqladmin
