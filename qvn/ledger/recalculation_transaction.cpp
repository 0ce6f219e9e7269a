#include "qvn/ledger/recalculation_transaction.h"

#include <string_view>

namespace qvn::ledger {
namespace {

std::string_view beginText(data::EngineFamily family) {
  switch (family) {
    case data::EngineFamily::Sqlite:
      // Reading first and writing then would fail where another station has written in between.
      return "BEGIN IMMEDIATE";
    case data::EngineFamily::Firebird:
      return "SET TRANSACTION";
    case data::EngineFamily::SqlServer:
      return "BEGIN TRANSACTION";
    case data::EngineFamily::MySql:
    case data::EngineFamily::Other:
      break;
  }
  return "BEGIN";
}

}  // namespace

BatchTransaction::BatchTransaction(data::Connection& connection, data::EngineFamily family) : connection_(connection) {
  connection_.Execute(beginText(family));
}

BatchTransaction::~BatchTransaction() {
  if (!isOpen_) return;
  try {
    connection_.Execute("ROLLBACK");
  } catch (const RuntimeError&) {
    // The failure on the way here is the one to tell; without its connection the engine takes the batch back by itself.
  }
}

void BatchTransaction::commit() {
  connection_.Execute("COMMIT");
  isOpen_ = false;
}

}  // namespace qvn::ledger
