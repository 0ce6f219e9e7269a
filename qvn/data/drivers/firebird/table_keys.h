// Which table and column each column of a result comes from.
#pragma once

#include <vector>

#include "qvn/data/driver.h"
#include "qvn/data/drivers/firebird/firebird_link.h"

namespace qvn::data::firebird {

/// Asks the engine's catalog for the keys of each table of a result. Throws ProviderError.
std::vector<ColumnOrigin> columnOrigins(FirebirdLink& link, Firebird::IMessageMetadata& metadata);

}  // namespace qvn::data::firebird
