// A shop of a million rows, as backups meet them.
#pragma once

#include <string_view>

namespace qvn::bench {

inline constexpr std::string_view kShopDatabase = "qvn_bench_shop";

/// Makes the database anew on the server of the benchmarks; ends the program when it cannot.
void makeShopOfAMillion();
void dropShopOfAMillion();

}  // namespace qvn::bench
