// Dumps as files of the system.
#pragma once

#include <string_view>

#include "qvn/mysqladmin/dump_stream.h"

namespace qvn::mysqladmin {

/// Makes the file empty, or makes it anew; only its owner can read and write it from then on. `path` as hosts give it.
/// Throws RuntimeError: 52, 57, 61, 67, 70 or 76.
DumpSinkPtr createDumpFile(std::string_view path);

/// Throws RuntimeError: 52, 53, 57, 67, 70 or 76.
DumpSourcePtr openDumpFile(std::string_view path);

}  // namespace qvn::mysqladmin
