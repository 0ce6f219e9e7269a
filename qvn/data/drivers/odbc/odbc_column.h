// Columns of a result: what the platform calls them, and how their values are fetched.
#pragma once

#include <sql.h>

#include <vector>

#include "qvn/data/driver.h"
#include "qvn/data/drivers/odbc/engine_kind.h"

namespace qvn::data::odbc {

/// How the driver hands a value over.
struct Transfer {
  SQLSMALLINT type = 0;     ///< one of SQL_C_*
  SQLULEN size = 0;         ///< bytes of one value in a block of rows; 0 for one that is fetched by itself, in pieces
  bool isUnsigned = false;  ///< of a whole number
  bool isUntyped = false;   ///< a text that may stand for a number, because the driver tells no type
};

struct DescribedColumn {
  Column column;
  Transfer transfer;
};

/// All columns of a statement that has been executed.
std::vector<DescribedColumn> describeColumns(SQLHSTMT statement, EngineKind engine);

}  // namespace qvn::data::odbc
