#include "qvn/ledger/recalculation_ranges.h"

#include <utility>

namespace qvn::ledger {

std::string KeyRange::condition(std::string_view column) const {
  const std::string name(column);
  const std::string upTo = name + " <= " + last;
  return after.empty() ? upTo : name + " > " + after + " AND " + upTo;
}

std::vector<KeyRange> splitKeys(data::Connection& connection, std::string_view table, std::string_view column,
                                std::size_t keysPerRange) {
  const std::string name(column);
  const auto rows = connection.Execute("SELECT DISTINCT " + name + " FROM " + std::string(table) + " WHERE " + name +
                                       " IS NOT NULL ORDER BY " + name);
  const data::Field& key = rows->Fields(0);
  std::vector<KeyRange> ranges;
  Variant last;
  std::int64_t keys = 0;
  const auto endRange = [&] {
    if (keys == 0) return;
    ranges.push_back({ranges.empty() ? "" : ranges.back().last, connection.Literal(last), std::exchange(keys, 0)});
  };
  for (; !rows->Eof(); rows->MoveNext()) {
    last = key.Value();
    if (static_cast<std::size_t>(++keys) == keysPerRange) endRange();
  }
  endRange();
  return ranges;
}

}  // namespace qvn::ledger
