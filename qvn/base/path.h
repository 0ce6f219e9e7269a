// Paths as hosts give them. Hosts join folders with "\"; where the system's separator is "/", a "\" is read as "/".
#pragma once

#include <filesystem>
#include <string_view>

namespace qvn {

/// The system's path for a path that a host gave, in UTF-8. Throws RuntimeError 52 when it holds a NUL character.
std::filesystem::path hostPath(std::string_view path);

}  // namespace qvn
