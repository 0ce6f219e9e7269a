// Recordsets that were saved to a file.
#pragma once

#include <string_view>

#include "qvn/data/recordset.h"

namespace qvn::core {

/// The recordset saved at `fullpath`, through the persistence provider. Null when the file is missing or cannot be
/// read.
data::RecordsetPtr LoadRsFromXML(std::string_view fullpath);

}  // namespace qvn::core
