// Dumps compressed in the gzip format (RFC 1952).
#pragma once

#include "qvn/mysqladmin/dump_stream.h"

namespace qvn::mysqladmin {

/// One member, fast rather than small.
DumpSinkPtr gzipSink(DumpSinkPtr file);

/// Members one after the other, as joined files have them.
DumpSourcePtr gzipSource(DumpSourcePtr file);

}  // namespace qvn::mysqladmin
