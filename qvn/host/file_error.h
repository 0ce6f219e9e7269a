// Run-time errors for what the system refused to do with a file.
#pragma once

#include <cstdint>
#include <string_view>
#include <system_error>

#include "qvn/base/runtime_error.h"

namespace qvn::host {

/// What was tried: "abrir el archivo", on which path, and with which second path when there are two. Paths as the host
/// gave them.
struct FileAttempt {
  std::string_view verb;
  std::string_view path;
  std::string_view target = {};
};

/// The error `number`: "No se pudo abrir el archivo «caja.txt»: No se encontró el archivo".
RuntimeError fileError(std::int32_t number, const FileAttempt& attempt);

/// The error for the system's code, whose own words stand in parentheses at the end. A name that is not there is 53
/// when its folder is, else 76; with two paths the second is the one that is looked at.
RuntimeError fileError(const std::error_code& code, const FileAttempt& attempt);

}  // namespace qvn::host
