#include "qvn/mysqladmin/product.h"

#include "qvn/base/format_pattern.h"

namespace qvn::mysqladmin {

std::string productName() { return "QvnGenericFunctions v" QVN_VERSION; }

std::string dumpMoment(Date moment) { return formatValue(moment, R"(dd\/mm\/yy hh\:nn\:ss)"); }

}  // namespace qvn::mysqladmin
