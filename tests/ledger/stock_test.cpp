#include "qvn/ledger/stock.h"

#include <gtest/gtest.h>

#include "tests/ledger/shop.h"
#include "tests/support/error_of.h"

namespace qvn::ledger {
namespace {

using test::errorNumber;
using Statements = std::vector<std::string>;

class Stock : public testing::TestWithParam<test::Engine> {
 protected:
  Stock() {
    for (const char* sql : {
             "CREATE TABLE prods (articulo VARCHAR(20) NOT NULL PRIMARY KEY, en_venta DOUBLE PRECISION)",
             "CREATE TABLE partvta (venta INTEGER, articulo VARCHAR(20), almacen INTEGER, estado CHAR(2), cantidad "
             "DOUBLE PRECISION)",
             "CREATE TABLE pedidos (pedido INTEGER NOT NULL PRIMARY KEY, estado CHAR(2), tipo CHAR(2))",
             "CREATE TABLE pedpar (id_salida INTEGER NOT NULL PRIMARY KEY, pedido INTEGER, articulo VARCHAR(20), "
             "cantidad DOUBLE PRECISION, surtido DOUBLE PRECISION)",
             "CREATE TABLE invfis (inventario INTEGER NOT NULL PRIMARY KEY, almacen INTEGER, estado CHAR(2), ubicacion "
             "VARCHAR(10), porubicacion INTEGER)",
             "INSERT INTO prods VALUES ('A1', 2.5)",
             "INSERT INTO prods VALUES ('NULO', NULL)",
         }) {
      shop_.run(sql);
    }
  }
  void insert(const std::string& table, const std::vector<const char*>& rows) {
    for (const char* row : rows) shop_.run("INSERT INTO " + table + " VALUES (" + row + ")");
  }
  test::Shop shop_{GetParam()};
};

TEST_P(Stock, ReservedQuantityGrowsByWhatWasSold) {
  ActualizaApartadosPorVenta("A1", 4, shop_.ambiente());
  ASSERT_EQ(shop_.statements().size(), 2u);
  EXPECT_EQ(shop_.statements()[0], "SELECT articulo, en_venta FROM prods WHERE articulo = 'A1'");
  EXPECT_EQ(shop_.statements()[1].substr(0, 28), "UPDATE prods SET en_venta = ");
  EXPECT_EQ(shop_.scalar("SELECT en_venta FROM prods WHERE articulo = 'A1'"), "6.5");
  ActualizaApartadosPorVenta("A1", "-1.5", shop_.ambiente());
  EXPECT_EQ(shop_.scalar("SELECT en_venta FROM prods WHERE articulo = 'A1'"), "5");
  shop_.forgetStatements();
  ActualizaApartadosPorVenta("NULO", 4, shop_.ambiente());
  EXPECT_EQ(shop_.statements()[1], "UPDATE prods SET en_venta = NULL WHERE articulo = 'NULO'");
  EXPECT_EQ(shop_.scalar("SELECT en_venta FROM prods WHERE articulo = 'NULO'"), "(null)");
  shop_.forgetStatements();
  ActualizaApartadosPorVenta("nada", 4, shop_.ambiente());
  EXPECT_EQ(shop_.statements().size(), 1u);
  EXPECT_EQ(errorNumber([&] { ActualizaApartadosPorVenta("A1", "tres", shop_.ambiente()); }),
            error_number::kTypeMismatch);
  EXPECT_EQ(errorNumber([&] { ActualizaApartadosPorVenta("A1", 1, nullptr); }), error_number::kObjectNotSet);
}

TEST_P(Stock, QuantityInSalesInProgress) {
  insert("partvta", {"1, 'A1', 3, 'PE', 2.5", "2, 'A1', 3, 'PE', 4", "3, 'A1', 3, 'CE', 100", "4, 'A1', 9, 'PE', 50",
                     "5, 'B2', 3, 'PE', 1"});
  EXPECT_EQ(EnVenta("  A1 ", 1, 3, shop_.connection()), 4);
  EXPECT_EQ(EnVenta("A1", 0, "3", shop_.connection()), 6.5);
  EXPECT_EQ(EnVenta("nada", 0, 3, shop_.connection()), 0);
  EXPECT_EQ(shop_.statements()[0],
            "SELECT Sum( Cantidad ) AS Suma FROM partvta WHERE estado = 'PE' AND articulo = 'A1' AND almacen = 3 AND "
            "venta <> 1");
  EXPECT_EQ(errorNumber([&] { EnVenta("A1", 0, 3, nullptr); }), error_number::kObjectNotSet);
}

TEST_P(Stock, QuantityStillToSupply) {
  insert("pedidos", {"1, 'PE', 'PE'", "2, 'SU', 'PE'", "3, 'CE', 'PE'", "4, 'PE', 'CO'"});
  insert("pedpar",
         {"1, 1, 'A1', 10, 0", "2, 2, 'A1', 5, 1.5", "3, 3, 'A1', 100, 0", "4, 4, 'A1', 100, 0", "5, 1, 'B2', 1, 0"});
  EXPECT_EQ(PorSurtir("A1", shop_.connection()), 13.5);
  EXPECT_EQ(PorSurtir("A1", shop_.connection(), 1), 3.5);
  EXPECT_EQ(PorSurtir("nada", shop_.connection()), 0);
  EXPECT_EQ(shop_.statements()[1],
            "SELECT SUM( pedpar.cantidad - pedpar.surtido ) AS Suma FROM pedpar INNER JOIN pedidos ON  pedpar.pedido = "
            "pedidos.pedido WHERE pedidos.pedido <> 1 AND pedidos.estado <> 'CE' AND pedidos.tipo = 'PE' AND "
            "pedpar.articulo = 'A1'");
}

TEST_P(Stock, PhysicalInventoryBlocksItsLocationOrTheWarehouse) {
  insert("invfis", {"1, 1, 'PE', 'A-01', 1", "2, 1, 'PE', 'B-02', 1", "3, 2, 'PE', 'A-01', 0", "4, 3, 'CE', 'A-01', 0",
                    "5, 4, 'PE', 'A-01', NULL", "6, 5, 'PE', NULL, 1", "7, 6, 'PE', 'A-01', -1"});
  struct Row {
    const char* why;
    std::int16_t warehouse;
    const char* location;
    bool expected;
  };
  const Row kRows[] = {
      {"the first one decides", 1, "A-01", true},
      {"the second one is not looked at", 1, "B-02", false},
      {"case counts", 1, "a-01", false},
      {"the whole warehouse", 2, "Z-99", true},
      {"closed", 3, "A-01", false},
      {"no inventory", 9, "A-01", false},
      {"Null is not a location", 4, "Z-99", true},
      {"no location is none", 5, "A-01", false},
      {"any number but 0", 6, "A-01", true},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(VerificaInventarioFisico(row.location, row.warehouse, shop_.connection()), row.expected);
  }
  EXPECT_EQ(shop_.statements()[0],
            "SELECT ubicacion, porubicacion, ubicacion FROM invfis WHERE almacen = 1 AND estado = 'PE'");
  shop_.forgetStatements();
  EXPECT_FALSE(VerificaFisico(shop_.ambiente()));
  EXPECT_FALSE(VerificaFisico(nullptr));
  EXPECT_TRUE(shop_.statements().empty());
}

INSTANTIATE_TEST_SUITE_P(Engines, Stock, testing::ValuesIn(test::engines()), test::engineName);

}  // namespace
}  // namespace qvn::ledger
