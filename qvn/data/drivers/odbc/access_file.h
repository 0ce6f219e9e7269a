// Access database files as they are before any engine opens them: is it one, and which password does it ask for?
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace qvn::data::odbc {

/// Throws ProviderError kUnspecified when the file is missing, unreadable or no Access database, kLoginRefused when it
/// has a password and `password` is another one. The engine that reads these files does not look at their password.
void requireAccessFile(const std::filesystem::path& file, std::string_view password);

/// The password in the first page of a file, "" when it has none. `page` is at least kAccessHeaderSize long.
/// Source: the description of the format in the notes of the open-source reader of these files.
std::string accessFilePassword(std::string_view page);

inline constexpr std::size_t kAccessHeaderSize = 0x100;

}  // namespace qvn::data::odbc
