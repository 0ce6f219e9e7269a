// The engine's handles, owned from the line that obtains them.
#pragma once

#include <sqlite3.h>

#include <memory>

namespace qvn::data::sqlite {

struct CloseDatabase {
  // The _v2 form waits for statements that are still open, so that the order of closing does not matter.
  void operator()(sqlite3* database) const noexcept { sqlite3_close_v2(database); }
};
using DatabaseHandle = std::unique_ptr<sqlite3, CloseDatabase>;

struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};
using StatementHandle = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

}  // namespace qvn::data::sqlite
