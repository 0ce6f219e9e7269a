#include "bench/sales/books.h"

#include <algorithm>

#include "bench/sales/shop_tables.h"

namespace qvn::sales {
namespace {

using Rows = std::map<std::string, std::string>;  // values by key

std::string joined(std::initializer_list<std::string> values) {
  std::string text;
  for (const std::string& value : values) text += (text.empty() ? "" : "|") + value;
  return text;
}

// What the shop holds after the sales, by statement that reads it.
struct Account {
  Rows documents, movements, payments, customers, products, lines, orders;
};

struct Totals {
  std::map<std::int32_t, std::int64_t> customers, products, lines;
};

void addSale(const Sale& sale, Account& account, Totals& totals, const ShopSize& size) {
  const std::int64_t charges = sale.firstCharge + sale.secondCharge;
  const std::int64_t balance = charges - sale.applied;
  const std::int64_t left = sale.received - sale.applied;
  const std::string document = std::to_string(sale.document);
  account.documents[document] =
      joined({customerCode(sale.customer), std::to_string(balance), balance == 0 ? "S" : "P"});
  account.movements[document] = joined({"3", std::to_string(charges), std::to_string(sale.applied)});
  account.payments[std::to_string(sale.payment)] =
      joined({std::to_string(sale.received), std::to_string(left), left == 0 ? "1" : "0"});
  totals.customers[sale.customer] += balance;
  totals.products[productOfLine(sale.line, size)] += sale.quantity;
  totals.lines[sale.line] += sale.quantity;
}

Account accountOf(const std::vector<Sale>& sales, const ShopSize& size) {
  Account account;
  Totals totals;
  for (const Sale& sale : sales) addSale(sale, account, totals, size);
  for (std::int32_t i = 1; i <= size.customers; ++i) {
    account.customers[customerCode(i)] = std::to_string(totals.customers[i]);
  }
  for (std::int32_t i = 1; i <= size.products; ++i) {
    const std::int64_t sold = totals.products[i];
    account.products[productCode(i)] = joined({std::to_string(sold), std::to_string(1'000'000 - sold)});
  }
  for (std::int32_t i = 1; i <= size.orders * kLinesPerOrder; ++i) {
    const std::int64_t supplied = totals.lines[i];
    account.lines[std::to_string(i)] = joined({std::to_string(supplied), std::to_string(kOrderedPerLine - supplied)});
    std::string& state = account.orders.try_emplace(std::to_string(orderOfLine(i)), "PE").first->second;
    if (supplied > 0) state = "SU";
  }
  return account;
}

Rows readRows(data::Connection& connection, const std::string& sql) {
  Rows rows;
  const auto recordset = connection.Execute(sql);
  for (; !recordset->Eof(); recordset->MoveNext()) {
    const Variant& value = recordset->Fields(1).Value();
    rows[recordset->Fields(0).Value().toText()] = value.isNull() ? "(null)" : value.toText();
  }
  return rows;
}

class Comparison {
 public:
  Comparison(data::Connection& connection, std::vector<std::string>& differences)
      : connection_(connection), differences_(differences) {}

  void compare(const std::string& what, const std::string& sql, const Rows& expected) {
    const Rows found = readRows(connection_, sql);
    for (const auto& [key, value] : expected) {
      const auto row = found.find(key);
      if (row == found.end()) {
        tell(what, key, "falta; debía ser " + value);
      } else if (row->second != value) {
        tell(what, key, "es " + row->second + " y debía ser " + value);
      }
    }
    for (const auto& [key, value] : found) {
      if (!expected.contains(key)) tell(what, key, "sobra: " + value);
    }
  }

 private:
  void tell(const std::string& what, const std::string& key, const std::string& text) {
    differences_.push_back(what + " " + key + ": " + text);
  }

  data::Connection& connection_;
  std::vector<std::string>& differences_;
};

std::string cents(const std::string& amount) { return "CAST(" + amount + " * 100 AS SIGNED)"; }

void compareAll(Comparison& comparison, const Account& account) {
  comparison.compare("documento",
                     "SELECT cobranza, CONCAT_WS('|', cliente, " + cents("saldo") + ", estado) FROM cobranza",
                     account.documents);
  comparison.compare("movimientos del documento",
                     "SELECT cobranza, CONCAT_WS('|', COUNT(*), " + cents("SUM(IF(cargo_ab = 'C', importe, 0))") +
                         ", " + cents("SUM(IF(cargo_ab = 'A', importe, 0))") + ") FROM cobdet GROUP BY cobranza",
                     account.movements);
  comparison.compare(
      "pago", "SELECT abono, CONCAT_WS('|', " + cents("importe") + ", " + cents("por_apli") + ", aplicado) FROM caja",
      account.payments);
  comparison.compare("cliente", "SELECT cliente, " + cents("saldo") + " FROM clients", account.customers);
  comparison.compare("artículo",
                     "SELECT articulo, CONCAT_WS('|', CAST(por_surt AS SIGNED), CAST(existencia AS SIGNED)) FROM prods",
                     account.products);
  comparison.compare("partida",
                     "SELECT id_salida, CONCAT_WS('|', CAST(surtido AS SIGNED), CAST(por_surt AS SIGNED)) FROM pedpar",
                     account.lines);
  comparison.compare("pedido", "SELECT pedido, estado FROM pedidos", account.orders);
}

}  // namespace

void Books::read(std::istream& log) {
  for (std::string line; std::getline(log, line);) {
    if (const auto entry = fromLine(line)) {
      take(*entry);
    } else if (!log.eof()) {
      faults_.push_back("línea que no se entiende: " + line);
    }
  }
}

void Books::take(const Entry& entry) {
  switch (entry.told) {
    case Told::Drawn:
      if (!drawn_[entry.counter].insert(entry.number).second) {
        faults_.push_back("el número " + std::to_string(entry.number) + " de " + entry.counter + " se dio dos veces");
      }
      break;
    case Told::Stored:
      stored_.push_back(entry.sale);
      times_.push_back(entry.microseconds);
      break;
    case Told::Unknown:
      unknown_.push_back(entry.sale);
      break;
    case Told::Refused:
      ++refused_;
      break;
    case Told::Error:
      ++errors_;
      break;
  }
}

std::vector<std::string> Books::differences(data::Connection& connection) const {
  std::vector<std::string> differences = faults_;
  std::vector<Sale> sales = stored_;
  for (const Sale& sale : unknown_) {
    const std::string document = std::to_string(sale.document);
    if (!connection.Execute("SELECT 1 FROM cobranza WHERE cobranza = " + document)->Eof()) sales.push_back(sale);
  }
  Comparison comparison(connection, differences);
  compareAll(comparison, accountOf(sales, shopSize(connection)));

  const Rows counters = readRows(connection, "SELECT dato, consec FROM consec");
  for (const auto& [counter, numbers] : drawn_) {
    const auto row = counters.find(counter);
    const std::int64_t last = row == counters.end() ? 0 : std::stoll(row->second);
    // A draw whose answer was lost leaves a gap, but no number is given that the counter has not reached.
    const bool hasGaps = errors_ > 0;
    const auto given = static_cast<std::int64_t>(numbers.size());
    if (last < *numbers.rbegin() || (!hasGaps && last != given)) {
      differences.push_back("contador " + counter + ": está en " + std::to_string(last) + " y se dieron " +
                            std::to_string(given) + " números hasta el " + std::to_string(*numbers.rbegin()));
    }
  }
  return differences;
}

}  // namespace qvn::sales
