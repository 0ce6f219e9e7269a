// What the stations were told, and what the shop must hold if all of it is true: an account of its own, kept in whole
// cents without the ledger's help.
#pragma once

#include <cstdint>
#include <istream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "bench/sales/sale.h"
#include "qvn/data/connection.h"

namespace qvn::sales {

class Books {
 public:
  /// Takes a station's log. Its last line may be cut off.
  void read(std::istream& log);

  /// Compares with the database that `connection` leads to. Gives one text for each difference, none when all is well.
  /// A sale of unknown outcome may be there as a whole or be missing as a whole.
  [[nodiscard]] std::vector<std::string> differences(data::Connection& connection) const;

  /// Microseconds of each stored sale.
  [[nodiscard]] const std::vector<std::int64_t>& times() const { return times_; }
  [[nodiscard]] std::size_t stored() const { return stored_.size(); }
  [[nodiscard]] std::size_t unknown() const { return unknown_.size(); }
  [[nodiscard]] std::size_t refused() const { return refused_; }
  [[nodiscard]] std::size_t errors() const { return errors_; }

 private:
  void take(const Entry& entry);

  std::map<std::string, std::set<std::int32_t>> drawn_;  // numbers by counter
  std::vector<std::string> faults_;                      // found in the logs alone
  std::vector<Sale> stored_;
  std::vector<Sale> unknown_;
  std::size_t refused_ = 0;
  std::size_t errors_ = 0;
  std::vector<std::int64_t> times_;
};

}  // namespace qvn::sales
