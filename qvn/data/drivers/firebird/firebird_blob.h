// Long texts and bytes, which the engine keeps beside the rows.
#pragma once

#include <string>
#include <string_view>

#include "qvn/data/drivers/firebird/firebird_link.h"
#include "qvn/data/drivers/firebird/firebird_transaction.h"

namespace qvn::data::firebird {

/// Reads all of a blob; the result lies in `buffer`, whose memory is used again.
std::string_view readBlob(FirebirdLink& link, const Transaction& transaction, ISC_QUAD id, std::string& buffer);

/// Stores a new blob for a statement of the same transaction.
ISC_QUAD writeBlob(FirebirdLink& link, const Transaction& transaction, std::string_view bytes, int subType);

}  // namespace qvn::data::firebird
