// Writing a piece of a file at once.
#pragma once

#include <filesystem>
#include <string_view>

namespace qvn::system {

enum class WriteMode { Append, Replace };

/// Opens or creates the file, writes, closes it. False when any of that failed.
bool writeFile(const std::filesystem::path& file, std::string_view bytes, WriteMode mode);

}  // namespace qvn::system
