// The changes of a recalculation as tables: one for the documents and one for the totals of each side.
#pragma once

#include <optional>

#include "apps/qvn/output.h"
#include "apps/qvn/table_writer.h"
#include "qvn/ledger/recalculation.h"

namespace qvn::cli {

/// Memory does not grow with the number of changes.
class ChangeTables {
 public:
  explicit ChangeTables(Output& out) : out_(out) {}

  void add(const ledger::BalanceChange& change);
  /// Writes what is still held back, and an empty line after the last table.
  void end();

 private:
  Output& out_;
  std::optional<TableWriter> table_;
  ledger::LedgerSide side_{};
  ledger::RecalculationStage stage_{};
};

}  // namespace qvn::cli
