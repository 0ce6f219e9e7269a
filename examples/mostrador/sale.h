// One sale at the counter: its lines, its total, and how it enters the books.
#pragma once

#include <string>
#include <vector>

#include "money.h"
#include "qvn/lumlibreria.h"
#include "shop.h"

namespace mostrador {

struct SaleLine {
  Product product;
  double quantity = 0;
  [[nodiscard]] Cents amount() const { return toCents(quantity * toAmount(product.price)); }
};

struct Payment {
  Cents total = 0;
  Cents received = 0;
  [[nodiscard]] Cents change() const { return received > total ? received - total : 0; }
};

/// A sale that has a number.
struct ClosedSale {
  std::int32_t number = 0;
  std::string date;
  std::vector<SaleLine> lines;
  Payment payment;
};

class Sale {
 public:
  [[nodiscard]] const std::vector<SaleLine>& lines() const { return lines_; }
  [[nodiscard]] Cents total() const;

  /// Adds to the line of the same product. Throws qvn::RuntimeError 5 for a quantity that is not positive, or beyond
  /// what is in stock.
  void add(const Product& product, double quantity);
  void remove(std::size_t line) { lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(line)); }
  void clear() { lines_.clear(); }

 private:
  std::vector<SaleLine> lines_;
};

/// Draws the number and writes lines, stock, document, payment and balances, all or nothing. Throws qvn::RuntimeError;
/// the database is then as it was, but for the number, which stays unused.
ClosedSale closeSale(const qvn::LumLibreria& library, const qvn::host::AmbientePtr& station, const Sale& sale,
                     Cents received);

}  // namespace mostrador
