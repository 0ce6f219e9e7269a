// Statements that save a row's edit.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "qvn/data/driver.h"

namespace qvn::data::internal {

/// The new values of a row by column; nothing where a field was not set.
using Edits = std::vector<std::optional<Variant>>;

/// A value that the row had when it was read, by column.
using OriginalValue = std::function<const Variant&(std::size_t)>;

/// What the statements are built from. Throws nothing itself; the functions below throw ProviderError kNotSupported
/// when the columns do not tell which table or which row is meant.
struct EditContext {
  const Session& session;
  const std::vector<Column>& columns;
  const std::vector<ColumnOrigin>& origins;
};

/// "UPDATE table SET ... WHERE ...", the row being found by its primary key and by what the changed columns held
/// before.
std::string updateStatement(const EditContext& context, const Edits& edits, const OriginalValue& original);
/// "INSERT INTO table (...) VALUES (...)" with the columns that were set, and with the session's numberClause when an
/// automatic number is not among them.
std::string insertStatement(const EditContext& context, const Edits& edits);
/// "DELETE FROM table WHERE ...", by the primary key.
std::string deleteStatement(const EditContext& context, const OriginalValue& original);

}  // namespace qvn::data::internal
