// Where the columns of a result come from.
#pragma once

#include <sql.h>

#include <string>
#include <string_view>
#include <vector>

#include "qvn/data/driver.h"
#include "qvn/data/drivers/odbc/odbc_link.h"

namespace qvn::data::odbc {

/// Tables and columns as the driver states them for an executed statement, without keys. Where a driver states none,
/// those of "SELECT ... FROM table ..." with one table; all empty otherwise. The names are not quoted.
std::vector<ColumnOrigin> statedOrigins(const OdbcLink& link, SQLHSTMT statement, const std::vector<Column>& columns,
                                        std::string_view sql);

/// Marks the columns of primary keys and quotes the names. It asks the driver: no rows may be on their way.
void markKeys(OdbcLink& link, std::vector<ColumnOrigin>& origins);

/// The one table that a SELECT statement reads, "" when there are several or the text is of another form.
std::string singleTable(std::string_view sql);

}  // namespace qvn::data::odbc
