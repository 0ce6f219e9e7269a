// The reading loops that recordsets are measured against: each engine's own client library, used as its manual shows.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace qvn::bench {

inline constexpr const char* kSelect = "SELECT id, articulo, nombre, precio, existencia FROM bench_prods";

/// What every reader makes of the same rows.
struct Checksum {
  std::int64_t whole = 0;
  double amount = 0;
  std::size_t characters = 0;
  bool operator==(const Checksum&) const = default;
};

class RawReader {
 public:
  virtual ~RawReader() = default;
  /// Runs kSelect and reads every column of every row.
  virtual Checksum read() = 0;
};

// Each ends the program with a message when it cannot connect.
std::unique_ptr<RawReader> rawSqlite(const std::string& file);
std::unique_ptr<RawReader> rawMysql();
std::unique_ptr<RawReader> rawFirebird(const std::string& file);
/// `connectionString` is the driver manager's own.
std::unique_ptr<RawReader> rawOdbc(const std::string& connectionString);

/// Ends the program with the message unless `holds`.
void require(bool holds, const char* what);

}  // namespace qvn::bench
