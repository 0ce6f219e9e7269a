// The keys of a table, cut into ranges of a fixed number of keys.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "qvn/data/connection.h"

namespace qvn::ledger {

/// The keys after one bound up to another; both are literals of the engine.
struct KeyRange {
  std::string after;  ///< empty for the first range
  std::string last;
  std::int64_t keys = 0;

  /// "cobranza > 10 AND cobranza <= 20"
  [[nodiscard]] std::string condition(std::string_view column) const;
};

/// Reads every key once, in the engine's order, and keeps the last one of each range. Rows without a key are in no
/// range. Throws ProviderError.
std::vector<KeyRange> splitKeys(data::Connection& connection, std::string_view table, std::string_view column,
                                std::size_t keysPerRange);

}  // namespace qvn::ledger
