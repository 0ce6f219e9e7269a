// The drivers that this build of the library brings along.
#pragma once

namespace qvn::data {

/// Makes them known to connections; calling it again changes nothing. LumLibreria does it when it is created.
void registerBuiltInDrivers();

}  // namespace qvn::data
