// What tells a member of a cluster from a server by itself.
#pragma once

#include <string_view>

namespace qvn::data {

/// 1 on a MariaDB server that is a member. Engines that know no clusters refuse the statement.
inline constexpr std::string_view kClusterQuestion = "SELECT @@wsrep_on = 1 AND @@wsrep_provider <> 'none'";

}  // namespace qvn::data
