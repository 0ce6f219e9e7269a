#include "qvn/ledger/lots.h"

#include <gtest/gtest.h>

#include "qvn/ledger/price_history.h"
#include "tests/ledger/shop.h"
#include "tests/support/error_of.h"
#include "tests/support/fixed_clock.h"

namespace qvn::ledger {
namespace {

using test::errorNumber;

class Lots : public testing::TestWithParam<test::Engine> {
 protected:
  Lots() {
    for (const char* sql : {
             "CREATE TABLE slotes (id_salida INTEGER, lote VARCHAR(20), cantidad DOUBLE PRECISION)",
             "CREATE TABLE lotes (id INTEGER NOT NULL PRIMARY KEY, lote VARCHAR(20), cantidad DOUBLE PRECISION, "
             "cantsal DOUBLE PRECISION)",
         }) {
      shop_.run(sql);
    }
  }
  // "id:gone out" of every lot, oldest first.
  [[nodiscard]] std::string goneOut() {
    std::string text;
    for (int id = 1; id <= 3; ++id) {
      const std::string where = " FROM lotes WHERE id = " + std::to_string(id);
      if (shop_.scalar("SELECT COUNT(*)" + where) != "0") text += shop_.scalar("SELECT cantsal" + where) + " ";
    }
    return text;
  }
  test::Shop shop_{GetParam()};
};

TEST_P(Lots, NewestLotsAreFilledFirst) {
  struct Row {
    const char* why;
    std::vector<const char*> lots;       // cantidad, cantsal; oldest first
    std::vector<const char*> movements;  // quantities
    const char* expected;
  };
  const Row kRows[] = {
      {"fits the newest", {"10, 0", "10, 3"}, {"5"}, "0 8 "},
      {"fits exactly", {"10, 0", "10, 3"}, {"7"}, "0 10 "},
      {"5 - 8 is below 0: the older lot is left alone", {"10, 0", "10, 8"}, {"5"}, "0 10 "},
      {"9 - 2 goes on with 7", {"10, 0", "10, 2"}, {"9"}, "7 10 "},
      {"what remains after the oldest is dropped", {"2, 0", "3, 0"}, {"9"}, "2 3 "},
      {"three lots, the rule of the filled one each time", {"10, 0", "10, 1", "10, 2"}, {"12"}, "9 10 10 "},
      {"0.1 + 0.2 does not fit 0.3", {"10, 0", "0.3, 0.1"}, {"0.2"}, "0.1 0.3 "},
      {"several movements", {"10, 0", "10, 3"}, {"5", "2", "1"}, "0 10 "},
      {"nothing to return", {"10, 0", "10, 3"}, {"0", "-4"}, "0 3 "},
      {"Null and a quantity is Null", {"10, 0", "10, NULL"}, {"5"}, "0 (null) "},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    shop_.run("DELETE FROM lotes");
    shop_.run("INSERT INTO slotes VALUES (8, 'L1', 1)");
    for (std::size_t i = 0; i < row.lots.size(); ++i) {
      shop_.run("INSERT INTO lotes VALUES (" + std::to_string(i + 1) + ", 'L1', " + row.lots[i] + ")");
    }
    for (const char* quantity : row.movements) {
      shop_.run("INSERT INTO slotes VALUES (7, 'L1', " + std::string(quantity) + ")");
    }
    RegresaLotes(7, shop_.ambiente());
    EXPECT_EQ(goneOut(), row.expected);
    EXPECT_EQ(shop_.scalar("SELECT COUNT(*) FROM slotes WHERE id_salida = 7"), "0");
  }
  EXPECT_EQ(shop_.scalar("SELECT COUNT(*) FROM slotes"), std::to_string(std::size(kRows)));
}

TEST_P(Lots, StatementsAndFailures) {
  shop_.run("INSERT INTO slotes VALUES (7, 'L1', 9)");
  shop_.run("INSERT INTO lotes VALUES (1, 'L1', 10, 0)");
  shop_.run("INSERT INTO lotes VALUES (2, 'L1', 10, 2)");
  RegresaLotes(7, shop_.ambiente());
  ASSERT_EQ(shop_.statements().size(), 5u);
  EXPECT_EQ(shop_.statements()[0], "SELECT * FROM slotes WHERE id_salida = 7");
  EXPECT_EQ(shop_.statements()[1], "SELECT * FROM lotes WHERE lote = 'L1' ORDER BY id DESC");
  EXPECT_TRUE(shop_.statements()[2].starts_with("UPDATE lotes SET cantsal = ")) << shop_.statements()[2];
  EXPECT_TRUE(shop_.statements()[2].ends_with(" WHERE id = 2")) << shop_.statements()[2];
  EXPECT_TRUE(shop_.statements()[3].ends_with(" WHERE id = 1")) << shop_.statements()[3];
  EXPECT_EQ(shop_.statements()[4], "DELETE FROM slotes WHERE id_salida = 7");

  // A full lot without a quantity gone out: the lot is written, the movements stay.
  shop_.run("UPDATE lotes SET cantsal = NULL");
  shop_.run("INSERT INTO slotes VALUES (7, 'L1', 11)");
  EXPECT_EQ(errorNumber([&] { RegresaLotes(7, shop_.ambiente()); }), error_number::kInvalidUseOfNull);
  EXPECT_EQ(goneOut(), "(null) 10 ");
  EXPECT_EQ(shop_.scalar("SELECT COUNT(*) FROM slotes"), "1");
  shop_.run("UPDATE slotes SET cantidad = NULL");
  EXPECT_EQ(errorNumber([&] { RegresaLotes(7, shop_.ambiente()); }), error_number::kInvalidUseOfNull);
  shop_.run("UPDATE slotes SET cantidad = 1, lote = 'O''H'");
  EXPECT_EQ(errorNumber([&] { RegresaLotes(7, shop_.ambiente()); }), data::provider_number::kStatementRefused);
  EXPECT_EQ(errorNumber([&] { RegresaLotes(7, nullptr); }), error_number::kObjectNotSet);
}

TEST_P(Lots, PriceChangesAreRecordedWhole) {
  std::string oldPrices;
  std::string columns;
  for (int i = 1; i <= 10; ++i) oldPrices += ", precio" + std::to_string(i) + " DOUBLE PRECISION";
  columns = oldPrices;
  for (std::size_t at = 0; (at = columns.find("precio", at)) != std::string::npos; at += 9)
    columns.insert(at + 6, "old");
  shop_.run("CREATE TABLE consec (dato VARCHAR(20) NOT NULL PRIMARY KEY, consec INTEGER)");
  shop_.run("CREATE TABLE prods (articulo VARCHAR(20) NOT NULL PRIMARY KEY, existencia DOUBLE PRECISION" + oldPrices +
            ")");
  shop_.run(
      "CREATE TABLE histcamb (id INTEGER NOT NULL PRIMARY KEY, articulo VARCHAR(20), sucursal INTEGER, existencia "
      "DOUBLE PRECISION, usuario VARCHAR(20), usufecha DATE, usuhora VARCHAR(8)" +
      oldPrices + columns + ")");
  shop_.run("INSERT INTO prods VALUES ('Ñ''1', 12.5, 1, 2, 3, 4, 5, 6, 7, 8, 9, NULL)");
  shop_.run("INSERT INTO prods VALUES ('A1', 12.5, 1, 2, 3, 4, 5, 6, 7, 8, 9, NULL)");
  shop_.run("INSERT INTO histcamb (id) VALUES (41)");
  const auto ambiente = std::make_shared<host::SimpleAmbiente>(shop_.connection());
  ambiente->setSucursal(3);
  ambiente->setUsuario("O'Hara");
  const auto clock = std::make_shared<test::FixedClock>(std::vector{Date::fromCivil(2012, 3, 7, {9, 5, 3})});
  SalvaHistCamb("  A1 ", {10.5, 0, 0, 0, 0, 0, 0, 0, 0, 99.99}, ambiente, clock);
  EXPECT_EQ(
      shop_.row("SELECT articulo, sucursal, existencia, usuario, usuhora, precio1, precio2, precio10, precioold1, "
                "precioold9, precioold10 FROM histcamb WHERE id = 42"),
      "A1|3|12.5|O'Hara|09:05:03|10.5|0|99.99|1|9|(null)");
  const Variant day = shop_.connection()->Execute("SELECT usufecha FROM histcamb WHERE id = 42")->Fields(0).Value();
  EXPECT_EQ(day.toDate(), Date::fromCivil(2012, 3, 7));
  SalvaHistCamb("A1", {1}, ambiente, clock);
  SalvaHistCamb("nada", {1}, ambiente, clock);
  EXPECT_EQ(shop_.scalar("SELECT COUNT(*) FROM histcamb"), "3");
  EXPECT_EQ(shop_.scalar("SELECT MAX(id) FROM histcamb"), "43");
  EXPECT_EQ(errorNumber([&] { SalvaHistCamb("Ñ'1", {1}, ambiente, clock); }), data::provider_number::kStatementRefused);
  EXPECT_EQ(errorNumber([&] { SalvaHistCamb("A1", {1}, nullptr, clock); }), error_number::kObjectNotSet);
}

INSTANTIATE_TEST_SUITE_P(Engines, Lots, testing::ValuesIn(test::engines()), test::engineName);

}  // namespace
}  // namespace qvn::ledger
