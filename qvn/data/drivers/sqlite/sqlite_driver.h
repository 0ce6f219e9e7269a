// The embedded engine: a database in one file, without a server.
//
//   Provider=SQLite;Data Source=tienda.db                         the file must exist
//   Provider=SQLite;Data Source=nueva.db;Mode=ReadWriteCreate     it is made when it is missing
//   Provider=SQLite;Data Source=:memory:
#pragma once

#include <memory>

#include "qvn/data/driver.h"

namespace qvn::data {

/// Serves connection strings whose provider is "SQLite". Data Source (or Database) names the file; Mode is ReadWrite
/// (the default), ReadWriteCreate or ReadOnly.
///
/// Declared column types decide the field types; an expression takes the type of its first value. A declared Numeric is
/// read as a Decimal, a declared date or time as a Date when it is stored as ISO text.
std::shared_ptr<const Driver> sqliteDriver();

}  // namespace qvn::data
