// A recalculation of the ledger as the program runs it: progress, changes, what could not be done, and the summary.
#pragma once

#include <vector>

#include "apps/qvn/command.h"
#include "qvn/data/connection.h"
#include "qvn/ledger/recalculation.h"

namespace qvn::cli {

struct RecalculationWishes {
  bool isSimulated;
  bool hasDetail;  ///< each change is shown
  bool hasTrace;   ///< standard error shows statements already
};

/// Recalculates one side after the other, once the tables of all are known to be there. Ctrl-C ends it after the batch
/// that is being written; that, and a total that could not be computed, makes the status Failed. A failure is told with
/// how far it came before it goes on to the caller. Throws ProviderError.
ExitStatus recalculateSides(const std::vector<ledger::LedgerSide>& sides, const RecalculationWishes& wishes,
                            const data::ConnectionPtr& connection, Context& context);

}  // namespace qvn::cli
