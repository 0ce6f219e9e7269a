#include "qvn/ledger/recalculation.h"

#include <optional>

#include "qvn/data/engine_family.h"
#include "qvn/data/transaction.h"
#include "qvn/host/require.h"
#include "qvn/ledger/recalculation_batch.h"
#include "qvn/ledger/recalculation_statements.h"

namespace qvn::ledger {
namespace {

class Recalculation {
 public:
  Recalculation(LedgerSide side, data::Connection& connection, const RecalculationOptions& options)
      : side_(side), connection_(connection), options_(options), family_(data::engineFamily(connection)) {}

  RecalculationResult run() {
    result_.isComplete = runStage(RecalculationStage::Documents, result_.documents);
    result_.hasTotals = result_.isComplete && (!options_.isSimulated || result_.documents.changed == 0);
    if (!result_.hasTotals) return result_;
    result_.isComplete = runStage(RecalculationStage::Totals, result_.totals);
    if (result_.isComplete) reportNobodys();
    return result_;
  }

 private:
  // False when it was stopped.
  bool runStage(RecalculationStage stage, StageCounts& counts) {
    const SideTables& tables = tablesOf(side_);
    const std::string_view key = stage == RecalculationStage::Documents ? tables.documents : tables.owner;
    const std::vector<KeyRange> ranges = splitKeys(connection_, tables.documents, key, options_.batchSize);
    RecalculationProgress progress{side_, stage, 0, 0};
    for (const KeyRange& range : ranges) progress.total += range.keys;
    for (const KeyRange& range : ranges) {
      if (!goesOn(progress)) return false;
      const Batch batch = options_.isSimulated ? read(stage, range) : readAndWrite(stage, range);
      counts.read += batch.read;
      counts.changed += static_cast<std::int64_t>(batch.changes.size());
      report(batch);
      progress.done += range.keys;
    }
    return goesOn(progress) || stage == RecalculationStage::Totals;
  }

  [[nodiscard]] bool goesOn(const RecalculationProgress& progress) const {
    return !options_.progress || options_.progress(progress);
  }

  [[nodiscard]] Batch read(RecalculationStage stage, const KeyRange& range) const {
    return readBatch(connection_, side_, stage, range, habitsOf(family_));
  }

  [[nodiscard]] Batch readAndWrite(RecalculationStage stage, const KeyRange& range) const {
    data::Transaction transaction(connection_);
    Batch batch = read(stage, range);
    for (const PendingChange& pending : batch.changes) connection_.Execute(pending.update);
    transaction.commit();
    return batch;
  }

  void report(const Batch& batch) {
    if (options_.changed) {
      for (const PendingChange& pending : batch.changes) options_.changed(pending.change);
    }
    for (const Variant& code : batch.failedCodes) fail(code);
  }

  void fail(const Variant& code) {
    ++result_.failed;
    if (options_.failed) options_.failed(code);
  }

  void reportNobodys() {
    const auto rows = connection_.Execute(nobodysText(tablesOf(side_)));
    if (rows->Fields(0).Value().toLongLong() > 0) fail(Null{});
  }

  LedgerSide side_;
  data::Connection& connection_;
  const RecalculationOptions& options_;
  data::EngineFamily family_;
  RecalculationResult result_;
};

}  // namespace

void requireLedger(LedgerSide side, const data::ConnectionPtr& connection) {
  data::Connection& open = *host::required(connection);
  // The statements of the work itself, on keys that no row can have.
  const KeyRange nothing{.after = "0", .last = "-1"};
  const KeyRange nobody{.after = "'b'", .last = "'a'"};
  const SideTables& tables = tablesOf(side);
  const Summing summing = habitsOf(data::engineFamily(open)).summing;
  open.Execute(documentsText(tables, nothing, summing));
  open.Execute(totalsText(tables, nobody, summing));
}

RecalculationResult recalculate(LedgerSide side, const data::ConnectionPtr& connection,
                                const RecalculationOptions& options) {
  if (options.batchSize == 0) throw RuntimeError(error_number::kInvalidCall);
  return Recalculation(side, *host::required(connection), options).run();
}

}  // namespace qvn::ledger
