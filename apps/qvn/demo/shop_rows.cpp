#include "apps/qvn/demo/shop_rows.h"

namespace qvn::cli::demo {
namespace {

std::string quoted(std::string_view text) { return "'" + std::string(text) + "'"; }

}  // namespace

std::string values(const Party& party) {
  return quoted(party.code) + ", " + quoted(party.name) + ", " + quoted(party.city) + ", 0";
}

std::string values(const Document& document) {
  return std::to_string(document.number) + ", " + quoted(document.party) + ", " + quoted(document.date) + ", " +
         quoted(document.currency) + ", " + std::string(document.exchangeRate) + ", 0, 'P'";
}

std::string values(const Movement& movement) {
  return std::to_string(movement.number) + ", " + std::to_string(movement.document) + ", " + quoted(movement.date) +
         ", '" + static_cast<char>(movement.kind) + "', " + quoted(movement.reason) + ", " +
         std::string(movement.amount) + ", " + (movement.payment == 0 ? "NULL" : std::to_string(movement.payment));
}

std::string values(const SupplierPayment& payment) {
  const std::string amount(payment.amount);
  return std::to_string(payment.number) + ", " + quoted(payment.party) + ", " + quoted(payment.date) + ", " +
         quoted(payment.currency) + ", " + amount + ", " + amount;
}

// That of a customer has the mark of being applied as well.
std::string values(const Payment& payment) { return values(SupplierPayment{payment}) + ", 0"; }

std::string values(const Product& product) {
  std::string text = quoted(product.code) + ", " + quoted(product.name);
  for (const std::string_view number :
       {product.stock, product.toSupply, product.toReceive, product.price1, product.price2}) {
    text.append(", ").append(number);
  }
  constexpr int kUnusedPrices = 8;
  for (int i = 0; i < kUnusedPrices; ++i) text.append(", 0");
  return text;
}

std::string values(const Order& order) {
  return std::to_string(order.number) + ", " + quoted(order.customer) + ", " + quoted(order.date) + ", 'PE'";
}

std::string values(const PurchaseOrder& order) {
  return std::to_string(order.number) + ", " + quoted(order.supplier) + ", " + quoted(order.date) + ", 'PE', 'OR'";
}

std::string values(const OrderLine& line) {
  const std::string quantity(line.quantity);
  return std::to_string(line.number) + ", " + std::to_string(line.order) + ", " + quoted(line.product) + ", " +
         quantity + ", 0, " + quantity;
}

std::string values(const Lot& lot) {
  return std::to_string(lot.id) + ", " + quoted(lot.name) + ", " + quoted(lot.product) + ", " +
         std::string(lot.quantity) + ", " + std::string(lot.goneOut);
}

std::string values(const LotMovement& movement) {
  return std::to_string(movement.id) + ", " + std::to_string(movement.stockExit) + ", " + quoted(movement.lot) + ", " +
         std::string(movement.quantity);
}

std::string values(const Counter& counter) { return quoted(counter.name) + ", " + std::to_string(counter.last); }

}  // namespace qvn::cli::demo
