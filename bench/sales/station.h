// A station that sells as fast as it can.
#pragma once

#include <chrono>
#include <ostream>
#include <string>

namespace qvn::sales {

struct StationOptions {
  std::string connectionString;
  std::chrono::seconds duration{10};
  std::chrono::seconds commandTimeout{5};
  std::uint64_t seed = 0;  ///< of what is sold to whom
};

/// Sells until the time is over, and writes every number and every outcome that it is told to `log`, a line each, which
/// is out before the next statement is sent.
void runStation(const StationOptions& options, std::ostream& log);

}  // namespace qvn::sales
