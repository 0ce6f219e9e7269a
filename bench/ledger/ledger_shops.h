// The tables that the ledger's methods are measured on. Each call of a round has a row of its own, and a round starts
// from the same rows every time, so that it issues the same statements and changes what is stored.
#pragma once

#include <string>
#include <vector>

namespace qvn::bench {

/// Calls to a round; also the number of documents, orders or lots.
constexpr int kCalls = 500;
/// Customers, suppliers or products.
constexpr int kOwners = 50;

struct Shop {
  /// Makes and fills the tables, which are not there. `n` holds the numbers 0 to kCalls - 1.
  std::vector<std::string> create;
  /// Brings back the rows that a round starts from.
  std::vector<std::string> restore;
};

const Shop& receivables();
const Shop& payables();
const Shop& customerOrders();
const Shop& purchaseOrders();
const Shop& stock();
const Shop& lots();
const Shop& prices();
const Shop& counters();

/// Fills the table `n`, which is to be there.
std::string fillNumbersText();

}  // namespace qvn::bench
