// Dates in statement texts.
#pragma once

#include <string>

#include "qvn/base/variant.h"
#include "qvn/data/connection.h"

namespace qvn::core {

/// A date literal for the connection's dialect, quotes included: '20120307' on SQL Server, #03/07/2012# for Access
/// files, '2012-03-07' elsewhere and without a connection. In the Access form "/" is the regional date separator. The
/// time of day is dropped. "" when `dFecha` is no date.
std::string FechaSQL(const Variant& dFecha, const data::ConnectionPtr& Connection);

}  // namespace qvn::core
