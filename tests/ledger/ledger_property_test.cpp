// Whatever a shop does in whatever order: the recomputed rows equal those of a ledger kept here in whole cents.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <random>

#include "qvn/ledger/orders.h"
#include "qvn/ledger/payables.h"
#include "qvn/ledger/receivables.h"
#include "tests/ledger/shop.h"

namespace qvn::ledger {
namespace {

constexpr int kDocuments = 6;
constexpr int kLines = 4;
constexpr int kSteps = 150;
constexpr std::array<double, 3> kRates = {1, 17.05, 21.3375};

struct Line {
  int ordered = 0;
  int supplied = 0;
};

class LedgerProperty : public testing::TestWithParam<test::Engine> {
 protected:
  LedgerProperty() {
    for (const char* sql : {
             "DELETE FROM cobranza",
             "CREATE TABLE proveed (proveedor VARCHAR(20) NOT NULL PRIMARY KEY, saldo DOUBLE PRECISION)",
             "CREATE TABLE cuenxpag (cuenxpag INTEGER NOT NULL PRIMARY KEY, proveedor VARCHAR(20), saldo DOUBLE "
             "PRECISION, tip_cam DOUBLE PRECISION, estado CHAR(1))",
             "CREATE TABLE cuenxpdet (id INTEGER NOT NULL PRIMARY KEY, cuenxpag INTEGER, cargo_ab CHAR(1), importe "
             "DOUBLE PRECISION, abono INTEGER)",
             "CREATE TABLE pedidos (pedido INTEGER NOT NULL PRIMARY KEY, estado CHAR(2))",
             "CREATE TABLE pedpar (id_salida INTEGER NOT NULL PRIMARY KEY, pedido INTEGER, articulo VARCHAR(20), "
             "cantidad DOUBLE PRECISION, surtido DOUBLE PRECISION, por_surt DOUBLE PRECISION)",
             "INSERT INTO proveed VALUES ('P0', 0)",
             "INSERT INTO proveed VALUES ('P1', 0)",
             "INSERT INTO clients VALUES ('P0', 0)",
             "INSERT INTO clients VALUES ('P1', 0)",
             "INSERT INTO caja VALUES (1, 100000, 0, 0)",
             "INSERT INTO pedidos VALUES (1, 'PE')",
         }) {
      shop_.run(sql);
    }
    for (int i = 0; i < kDocuments; ++i) {
      cents_[i] = 0;
      const std::string values = " VALUES (" + std::to_string(i) + ", 'P" + std::to_string(i % 2) + "', 0, " +
                                 std::to_string(rate(i)) + ", 'P')";
      shop_.run("INSERT INTO cobranza" + values);
      shop_.run("INSERT INTO cuenxpag" + values);
    }
    for (int i = 0; i < kLines; ++i) {
      lines_[i].ordered = 3 + i;
      const std::string ordered = std::to_string(lines_.at(i).ordered);
      shop_.run("INSERT INTO pedpar VALUES (" + std::to_string(i) + ", 1, 'A', " + ordered + ", 0, " + ordered + ")");
    }
  }

  static double rate(int document) { return kRates.at(static_cast<std::size_t>(document) % kRates.size()); }
  int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

  // A charge or a credit on one document of each side; credits of customers come out of the one payment.
  void move() {
    const int document = below(kDocuments);
    const bool isCharge = below(2) == 0;
    // Now and then exactly what settles the document.
    const int open = cents_.at(document);
    const int amount = !isCharge && open > 0 && below(3) == 0 ? open : 1 + below(99999);
    cents_.at(document) += isCharge ? amount : -amount;
    if (!isCharge) applied_ += amount;
    const std::string values = std::to_string(++movement_) + ", " + std::to_string(document) +
                               (isCharge ? ", 'C', " : ", 'A', ") + std::to_string(amount / 100) + "." +
                               std::to_string(amount % 100 + 100).substr(1) + (isCharge ? ", 0)" : ", 1)");
    shop_.run("INSERT INTO cobdet VALUES (" + values);
    shop_.run("INSERT INTO cuenxpdet VALUES (" + values);
    host::QueryPtr query;
    ActualizaSaldo(document, shop_.ambiente(), query);
    ActualizaSaldoPagos(document, shop_.ambiente());
    ActualizaPorAplicar(1, shop_.ambiente(), query);
  }

  void supply() {
    const int number = below(kLines);
    Line& line = lines_.at(number);
    const int quantity = below(2) == 0 ? line.ordered - line.supplied : below(5) - 2;
    line.supplied += quantity;
    host::QueryPtr query;
    ActualizaPorSurtirEnPedido("A", number, quantity, 1, shop_.ambiente(), false, query);
  }

  void expectDocuments(const std::string& table, const std::string& owners, bool settlesToTheCent) {
    std::map<int, double> totals;
    for (int i = 0; i < kDocuments; ++i) {
      const std::string where = " FROM " + table + " WHERE " + table + " = " + std::to_string(i);
      const double balance = std::stod(shop_.scalar("SELECT saldo" + where));
      EXPECT_NEAR(balance, cents_.at(i) / 100.0, 1e-7) << where;
      const std::string state = shop_.scalar("SELECT estado" + where);
      EXPECT_TRUE((state == "S") == (cents_.at(i) == 0) || (cents_.at(i) == 0 && !settlesToTheCent)) << where;
      totals[i % 2] += cents_.at(i) / 100.0 * rate(i);
    }
    const std::string key = owners == "clients" ? "cliente" : "proveedor";
    for (int i = 0; i < 2; ++i) {
      const std::string total =
          shop_.scalar("SELECT saldo FROM " + owners + " WHERE " + key + " = 'P" + std::to_string(i) + "'");
      EXPECT_NEAR(std::stod(total), totals.at(i), 1e-4) << owners << i;
    }
  }

  void expectOrder() {
    for (int i = 0; i < kLines; ++i) {
      const std::string where = " FROM pedpar WHERE id_salida = " + std::to_string(i);
      EXPECT_EQ(std::stod(shop_.scalar("SELECT surtido" + where)), lines_.at(i).supplied);
      EXPECT_EQ(std::stod(shop_.scalar("SELECT por_surt" + where)), lines_.at(i).ordered - lines_.at(i).supplied);
    }
    const bool isOpen =
        std::ranges::any_of(lines_, [](const auto& entry) { return entry.second.ordered > entry.second.supplied; });
    const bool isSupplied = std::ranges::any_of(lines_, [](const auto& entry) { return entry.second.supplied > 0; });
    EXPECT_EQ(shop_.scalar("SELECT estado FROM pedidos"), !isOpen ? "CE" : isSupplied ? "SU" : "PE");
  }

  test::Shop shop_{GetParam()};
  std::mt19937 random_;
  std::map<int, int> cents_;   // by document
  std::map<int, Line> lines_;  // by number
  int applied_ = 0;
  int movement_ = 0;
};

TEST_P(LedgerProperty, AnySequenceEndsInTheSameBooks) {
  for (const unsigned seed : {1u, 2u, 3u}) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    random_.seed(seed);
    for (int step = 0; step < kSteps; ++step) {
      if (below(3) == 0) {
        supply();
        expectOrder();
      } else {
        move();
      }
    }
    // Every document once more: those that no movement of this turn touched as well.
    host::QueryPtr query;
    for (int i = 0; i < kDocuments; ++i) {
      ActualizaSaldo(i, shop_.ambiente(), query);
      ActualizaSaldoPagos(i, shop_.ambiente());
    }
    expectDocuments("cobranza", "clients", true);
    expectDocuments("cuenxpag", "proveed", false);
    EXPECT_NEAR(std::stod(shop_.scalar("SELECT por_apli FROM caja WHERE abono = 1")), 100000 - applied_ / 100.0, 1e-6);
  }
}

INSTANTIATE_TEST_SUITE_P(Engines, LedgerProperty, testing::ValuesIn(test::shopEngines()), test::engineName);

}  // namespace
}  // namespace qvn::ledger
