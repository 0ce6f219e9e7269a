#include "qvn/data/transaction.h"

#include "qvn/data/engine_family.h"

namespace qvn::data {
namespace {

std::string_view beginText(EngineFamily family) {
  switch (family) {
    case EngineFamily::Sqlite:
      // Reading first and writing then would fail where another station has written in between.
      return "BEGIN IMMEDIATE";
    case EngineFamily::Firebird:
      return "SET TRANSACTION";
    case EngineFamily::SqlServer:
      return "BEGIN TRANSACTION";
    case EngineFamily::MySql:
    case EngineFamily::Other:
      break;
  }
  return "BEGIN";
}

}  // namespace

Transaction::Transaction(Connection& connection) : Transaction(connection, beginText(engineFamily(connection))) {}

Transaction::Transaction(Connection& connection, std::string_view opening) : connection_(connection) {
  connection_.Execute(opening);
}

Transaction::~Transaction() {
  if (!isOpen_) return;
  try {
    connection_.Execute("ROLLBACK");
  } catch (const RuntimeError&) {
    // The failure on the way here is the one to tell; without its connection the engine takes all back by itself.
  }
}

void Transaction::commit() {
  connection_.Execute("COMMIT");
  isOpen_ = false;
}

void Transaction::rollBack() {
  isOpen_ = false;
  connection_.Execute("ROLLBACK");
}

}  // namespace qvn::data
