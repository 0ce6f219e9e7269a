// Recalculation of a whole ledger: every document of one side and then every total of its owners, with the results that
// ActualizaSaldo (customers) or ActualizaSaldoPagos (suppliers) would leave if it were called for each document.
//
//   const auto result = recalculate(LedgerSide::Customers, connection, {.progress = show});
//   if (!result.isComplete) ...  // a further call goes on where this one was stopped
//
// The sums are the engine's own, read with one grouped statement for a few hundred documents at a time: a range of
// keys. Ranges, and not one result for everything, because a driver may have to hold what is left of a result when
// another statement starts on its connection, and a second connection that reads would keep the first from writing in a
// SQLite file. So memory holds one batch, and one key for each batch, whatever the number of documents.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "qvn/base/variant.h"
#include "qvn/data/connection.h"

namespace qvn::ledger {

/// Whose documents: `cobranza`, `cobdet` and `clients`, or `cuenxpag`, `cuenxpdet` and `proveed`.
enum class LedgerSide { Customers, Suppliers };

/// The total of a customer or supplier is the sum of balance x exchange rate over all documents that name it.
enum class RecalculationStage { Documents, Totals };

struct RecalculationProgress {
  LedgerSide side;
  RecalculationStage stage;
  std::int64_t done;   ///< documents or totals of the batches that are finished
  std::int64_t total;  ///< how many there were when the stage began
};

/// A row that was written, or that a simulation found to differ.
struct BalanceChange {
  LedgerSide side;
  RecalculationStage stage;
  std::string key;  ///< document number, or code of the customer or supplier
  Variant balanceBefore;
  double balance;
  Variant stateBefore;  ///< Empty for a total
  std::string state;    ///< 'S' or 'P'; "" for a total
};

struct RecalculationOptions {
  /// Nothing is written and no transaction is opened. Totals, which the engine sums from the stored balances, are then
  /// only looked at when no document differs.
  bool isSimulated = false;
  /// Documents or totals to a transaction; at least 1.
  std::size_t batchSize = 500;
  /// Called when a stage begins and after each of its batches; false stops before the next batch.
  std::function<bool(const RecalculationProgress&)> progress = {};
  /// Called for each change once its batch is in force.
  std::function<void(const BalanceChange&)> changed = {};
  /// Called with the code whose total is Null, and with Null for documents that name nobody.
  std::function<void(const Variant& code)> failed = {};
};

struct StageCounts {
  std::int64_t read = 0;
  std::int64_t changed = 0;
};

struct RecalculationResult {
  StageCounts documents;
  StageCounts totals;
  std::int64_t failed = 0;  ///< totals that could not be computed; they stay as they are
  bool hasTotals = true;    ///< false when it did not come to them: stopped, or a simulation that found changes
  bool isComplete = true;   ///< false when `progress` stopped it; what is in force then stays
};

/// Asks for all tables and fields that recalculate uses, and changes nothing. Throws ProviderError when one is missing.
void requireLedger(LedgerSide side, const data::ConnectionPtr& connection);

/// Recomputes one side. Only rows that differ from what the ledger's methods would write are written, so that a second
/// call writes nothing. Each batch is read and written in a transaction of its own: it must not be called within one,
/// and tables without transactions keep what a failing batch had written.
///
/// On engines whose transactions read a snapshot without noticing later changes (MySQL, MariaDB) a payment that another
/// station saves in the moments between a batch's reading and writing may be overwritten with the sum before it, where
/// the document's balance was wrong already: run it while nobody saves payments, or call it again.
///
/// A total that is Null (no document has an exchange rate), where the ledger's methods raise error 94, is counted as
/// failed, and the others go on. Codes that are in no row of `clients` or `proveed` change nothing.
///
/// @throws ProviderError  a statement failed: its batch is taken back, those before it stay in force
/// @throws RuntimeError   91 without a connection, 5 for a batch size of 0
RecalculationResult recalculate(LedgerSide side, const data::ConnectionPtr& connection,
                                const RecalculationOptions& options = {});

}  // namespace qvn::ledger
