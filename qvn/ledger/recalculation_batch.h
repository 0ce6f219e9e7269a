// One batch of a recalculation: what the engine sums for a range of keys, and which rows differ from it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "qvn/data/engine_family.h"
#include "qvn/ledger/recalculation.h"
#include "qvn/ledger/recalculation_ranges.h"
#include "qvn/ledger/recalculation_statements.h"
#include "qvn/ledger/stored_amount.h"

namespace qvn::ledger {

/// How an engine sums and stores.
struct EngineHabits {
  Summing summing;
  DecimalStorage storage;
};

EngineHabits habitsOf(data::EngineFamily family);

struct PendingChange {
  BalanceChange change;
  std::string update;  ///< the statement that makes it
};

struct Batch {
  std::int64_t read = 0;
  std::vector<PendingChange> changes;
  std::vector<Variant> failedCodes;  ///< whose total is Null
};

/// Reads the documents or totals of a range; the rows are closed on return. Throws ProviderError.
Batch readBatch(data::Connection& connection, LedgerSide side, RecalculationStage stage, const KeyRange& range,
                const EngineHabits& habits);

}  // namespace qvn::ledger
