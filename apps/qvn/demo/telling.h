// What the demonstration's stories show of the database.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "apps/qvn/command.h"
#include "qvn/data/connection.h"

namespace qvn::cli::demo {

/// Blanks before the lines of a story.
inline constexpr std::size_t kIndent = 3;

/// The one value that a statement gives. Throws RuntimeError 3021 when it gives none.
Variant readValue(const LumLibreria& library, const data::ConnectionPtr& connection, const std::string& sql);

/// The rows that a statement gives, as a table with the names of its fields.
void showRows(std::string_view sql, const data::ConnectionPtr& connection, Context& context);

}  // namespace qvn::cli::demo
