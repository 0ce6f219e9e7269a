// A definition to begin with, made from what a query gives.
#pragma once

#include <string_view>

#include "qvn/data/recordset.h"
#include "qvn/reports/definition.h"

namespace qvn::reports {

/// A column for each field, with a heading made of its name and the width and format of its type, and comments that
/// tell what else may be written. `rows` are those of `query`.
/// @throws RuntimeError   91 for a null recordset, 5 for a name that a definition cannot hold
/// @throws ProviderError  kObjectClosed
ReportDefinitionPtr firstDefinition(std::string_view query, const data::RecordsetPtr& rows);

}  // namespace qvn::reports
