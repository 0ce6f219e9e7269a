// Owners of the client library's handles.
#pragma once

#include <mysql.h>

#include <memory>

namespace qvn::data::mysql {

struct CloseConnection {
  void operator()(MYSQL* handle) const noexcept { mysql_close(handle); }
};
using ConnectionHandle = std::unique_ptr<MYSQL, CloseConnection>;

// Reads and drops the rows that are still on their way.
struct FreeResult {
  void operator()(MYSQL_RES* result) const noexcept { mysql_free_result(result); }
};
using ResultHandle = std::unique_ptr<MYSQL_RES, FreeResult>;

}  // namespace qvn::data::mysql
