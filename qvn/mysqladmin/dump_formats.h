// Compressed dumps, told by the ending of their names: ".gz" and ".zst" in any case; every other file is plain.
#pragma once

#include <string_view>

#include "qvn/mysqladmin/dump_stream.h"

namespace qvn::mysqladmin {

/// `file` itself, or what compresses into it as the ending of `path` asks.
DumpSinkPtr compressedFor(std::string_view path, DumpSinkPtr file);

/// `file` itself, or what expands it as the ending of `path` asks.
DumpSourcePtr expandedFor(std::string_view path, DumpSourcePtr file);

}  // namespace qvn::mysqladmin
