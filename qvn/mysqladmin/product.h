// Who made a dump, as its first lines say.
#pragma once

#include <string>

#include "qvn/base/date.h"

namespace qvn::mysqladmin {

/// "QvnGenericFunctions v0.1.0".
std::string productName();

/// "31/12/26 23:59:59", whatever the regional settings.
std::string dumpMoment(Date moment);

}  // namespace qvn::mysqladmin
