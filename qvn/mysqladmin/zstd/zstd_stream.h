// Dumps compressed in the Zstandard format (RFC 8878).
#pragma once

#include "qvn/mysqladmin/dump_stream.h"

namespace qvn::mysqladmin {

/// One frame with a checksum, at the library's usual level.
DumpSinkPtr zstdSink(DumpSinkPtr file);

/// Frames one after the other, as joined files have them.
DumpSourcePtr zstdSource(DumpSourcePtr file);

}  // namespace qvn::mysqladmin
