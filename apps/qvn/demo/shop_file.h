// The file in which the demonstration keeps its shop when nobody names another database.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace qvn::cli::demo {

/// DIR/tienda.db; makes the folder when it is missing. Throws RuntimeError 76 when it cannot be made.
std::filesystem::path prepareShopFile(std::string_view folder);

/// A connection string for a file that exists, or that is made when it is missing.
std::string connectionStringFor(const std::filesystem::path& file, bool createsFile);

}  // namespace qvn::cli::demo
