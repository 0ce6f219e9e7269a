#include "qvn/ledger/recalculation_batch.h"

#include "qvn/text/decimal_text.h"

namespace qvn::ledger {
namespace {

Batch readDocuments(data::Connection& connection, LedgerSide side, const KeyRange& range, const EngineHabits& habits) {
  const SideTables& tables = tablesOf(side);
  const auto rows = connection.Execute(documentsText(tables, range, habits.summing));
  const data::Field& number = rows->Fields(0);
  const data::Field& storedBalance = rows->Fields(1);
  const data::Field& storedState = rows->Fields(2);
  const data::Field& charges = rows->Fields(3);
  const data::Field& credits = rows->Fields(4);
  Batch batch;
  for (; !rows->Eof(); rows->MoveNext()) {
    ++batch.read;
    const DocumentBalance balance = documentBalance(charges.Value(), credits.Value(), tables.rounding);
    const std::string amount = text::FormatoDecimal(balance.amount);
    const std::string state = balance.isSettled() ? "S" : "P";
    if (holdsAmount(storedBalance, amount, habits.storage) && holdsText(storedState, state)) continue;
    batch.changes.push_back({{.side = side,
                              .stage = RecalculationStage::Documents,
                              .key = number.Value().toText(),
                              .balanceBefore = storedBalance.Value(),
                              .balance = balance.amount,
                              .stateBefore = storedState.Value(),
                              .state = state},
                             documentUpdate(tables, amount, state, connection.Literal(number.Value()))});
  }
  return batch;
}

Batch readTotals(data::Connection& connection, LedgerSide side, const KeyRange& range, const EngineHabits& habits) {
  const SideTables& tables = tablesOf(side);
  const auto rows = connection.Execute(totalsText(tables, range, habits.summing));
  const data::Field& code = rows->Fields(0);
  const data::Field& total = rows->Fields(1);
  const data::Field& registeredCode = rows->Fields(2);
  const data::Field& storedTotal = rows->Fields(3);
  Batch batch;
  for (; !rows->Eof(); rows->MoveNext()) {
    ++batch.read;
    if (total.Value().isNull()) {
      batch.failedCodes.push_back(code.Value());
      continue;
    }
    if (registeredCode.Value().isNull()) continue;
    const std::string amount = text::FormatoDecimal(total.Value().toDouble());
    if (holdsAmount(storedTotal, amount, habits.storage)) continue;
    batch.changes.push_back({{.side = side,
                              .stage = RecalculationStage::Totals,
                              .key = code.Value().toText(),
                              .balanceBefore = storedTotal.Value(),
                              .balance = total.Value().toDouble(),
                              .stateBefore = {},
                              .state = {}},
                             totalUpdate(tables, amount, connection.Literal(code.Value()))});
  }
  return batch;
}

}  // namespace

EngineHabits habitsOf(data::EngineFamily family) {
  switch (family) {
    case data::EngineFamily::Sqlite:
      return {Summing::Grouped, DecimalStorage::AsGiven};
    case data::EngineFamily::MySql:
      return {Summing::Grouped, DecimalStorage::Rounded};
    case data::EngineFamily::Firebird:  // its sort for a GROUP BY does not keep the order of equal keys
    case data::EngineFamily::SqlServer:
    case data::EngineFamily::Other:
      break;
  }
  return {Summing::Each, DecimalStorage::Rounded};
}

Batch readBatch(data::Connection& connection, LedgerSide side, RecalculationStage stage, const KeyRange& range,
                const EngineHabits& habits) {
  return stage == RecalculationStage::Documents ? readDocuments(connection, side, range, habits)
                                                : readTotals(connection, side, range, habits);
}

}  // namespace qvn::ledger
