#include "qvn/ledger/orders.h"

#include <gtest/gtest.h>

#include "tests/ledger/shop.h"
#include "tests/support/error_of.h"

namespace qvn::ledger {
namespace {

using test::errorNumber;
using Statements = std::vector<std::string>;

// Order 7 of both kinds has the lines 71 (10 pieces of A1) and 72 (4 of B2).
class Orders : public testing::TestWithParam<test::Engine> {
 protected:
  Orders() {
    for (const char* sql : {
             "CREATE TABLE prods (articulo VARCHAR(20) NOT NULL PRIMARY KEY, por_surt DOUBLE PRECISION, por_recib "
             "DOUBLE PRECISION)",
             "CREATE TABLE pedidos (pedido INTEGER NOT NULL PRIMARY KEY, estado CHAR(2), tipo CHAR(2))",
             "CREATE TABLE pedpar (id_salida INTEGER NOT NULL PRIMARY KEY, pedido INTEGER, articulo VARCHAR(20), "
             "cantidad DOUBLE PRECISION, surtido DOUBLE PRECISION, por_surt DOUBLE PRECISION)",
             "CREATE TABLE orden (orden INTEGER NOT NULL PRIMARY KEY, estado CHAR(2), tipo CHAR(2))",
             "CREATE TABLE ordpar (partida INTEGER NOT NULL PRIMARY KEY, orden INTEGER, articulo VARCHAR(20), cantidad "
             "DOUBLE PRECISION, surtido DOUBLE PRECISION, por_surt DOUBLE PRECISION)",
             "INSERT INTO prods VALUES ('A1', 14, 14)",
             "INSERT INTO pedidos VALUES (7, 'PE', 'PE')",
             "INSERT INTO pedpar VALUES (71, 7, 'A1', 10, 0, 10)",
             "INSERT INTO pedpar VALUES (72, 7, 'B2', 4, 0, 4)",
             "INSERT INTO orden VALUES (7, 'PE', 'XX')",
             "INSERT INTO ordpar VALUES (71, 7, 'A1', 10, 0, 10)",
             "INSERT INTO ordpar VALUES (72, 7, 'B2', 4, 0, 4)",
         }) {
      shop_.run(sql);
    }
  }
  void supply(int line, double quantity, bool touchesProducts = true) {
    host::QueryPtr query;
    ActualizaPorSurtirEnPedido("A1", line, quantity, 7, shop_.ambiente(), touchesProducts, query);
  }

  test::Shop shop_{GetParam()};
};

TEST_P(Orders, SupplyingIssuesTheseStatementsInThisOrder) {
  supply(71, 2.5);
  const Statements partly = {"UPDATE pedpar SET surtido = Surtido + 2.5 WHERE id_salida = 71",
                             "UPDATE pedpar SET por_surt = cantidad - Surtido WHERE id_salida = 71",
                             "UPDATE prods SET Por_surt = Por_surt + 2.5 WHERE Articulo = 'A1'",
                             "SELECT articulo FROM pedpar WHERE pedido = 7 AND por_surt > 0",
                             "SELECT articulo FROM pedpar WHERE pedido = 7 AND surtido > 0",
                             "UPDATE pedidos SET estado = 'SU' WHERE pedido = 7"};
  EXPECT_EQ(shop_.statements(), partly);
  EXPECT_EQ(shop_.row("SELECT surtido, por_surt FROM pedpar WHERE id_salida = 71"), "2.5|7.5");
  EXPECT_EQ(shop_.row("SELECT por_surt, por_recib FROM prods"), "16.5|14");
  shop_.run("DELETE FROM pedpar WHERE id_salida = 72");
  shop_.forgetStatements();
  supply(71, 7.5, false);
  EXPECT_EQ(shop_.statements(), (Statements{"UPDATE pedpar SET surtido = Surtido + 7.5 WHERE id_salida = 71",
                                            "UPDATE pedpar SET por_surt = cantidad - Surtido WHERE id_salida = 71",
                                            "SELECT articulo FROM pedpar WHERE pedido = 7 AND por_surt > 0",
                                            "UPDATE pedidos SET estado = 'CE' WHERE pedido = 7"}));
  EXPECT_EQ(shop_.scalar("SELECT por_surt FROM prods"), "16.5");
}

TEST_P(Orders, ReceivingIssuesTheseStatementsInThisOrder) {
  ActualizaPorSurtirEnOrden("A1", 71, 2.5, 7, shop_.ambiente());
  EXPECT_EQ(shop_.statements(), (Statements{"UPDATE ordpar SET surtido = surtido + 2.5 WHERE Partida = 71",
                                            "UPDATE ordpar SET Por_surt = Cantidad - Surtido WHERE Partida = 71",
                                            "UPDATE prods SET Por_recib = Por_recib + 2.5 WHERE Articulo = 'A1'",
                                            "SELECT * FROM ordpar WHERE ORDEN = 7 AND por_surt > 0",
                                            "SELECT articulo FROM ordpar WHERE orden = 7 AND surtido > 0",
                                            "UPDATE orden SET estado = 'SU', tipo = 'OR' WHERE orden = 7"}));
  EXPECT_EQ(shop_.row("SELECT estado, tipo FROM orden"), "SU|OR");
  EXPECT_EQ(shop_.row("SELECT por_surt, por_recib FROM prods"), "14|16.5");
}

// The state after each step of one order's life; both kinds follow the same rule.
TEST_P(Orders, StatesFollowTheLines) {
  struct Step {
    int line;
    double quantity;
    const char* state;
  };
  const Step kSteps[] = {
      {71, 10, "SU"},   // the other line is still open
      {72, 4, "CE"},    // closed
      {72, -1, "SU"},   // reopened
      {72, 2, "CE"},    // one too many is closed as well
      {72, -5, "SU"},   // the first line is still supplied
      {71, -10, "PE"},  // back to the beginning
      {71, -1, "PE"},   // less than nothing is not supplied
      {999, 3, "PE"},   // an unknown line leaves the rest alone
  };
  shop_.run("UPDATE orden SET tipo = 'XX'");
  for (const Step& step : kSteps) {
    SCOPED_TRACE(std::to_string(step.line) + " " + std::to_string(step.quantity));
    supply(step.line, step.quantity, false);
    ActualizaPorSurtirEnOrden("A1", step.line, step.quantity, 7, shop_.ambiente(), false);
    EXPECT_EQ(shop_.scalar("SELECT estado FROM pedidos"), step.state);
    EXPECT_EQ(shop_.row("SELECT estado, tipo FROM orden"), std::string(step.state) + "|OR");
  }
  EXPECT_EQ(shop_.row("SELECT por_surt, por_recib FROM prods"), "14|14");
}

TEST_P(Orders, LinesFindTheirOrder) {
  ActualizaPorSurtir(shop_.ambiente(), "A1", 71, 1);
  ASSERT_EQ(shop_.statements().size(), 7u);
  EXPECT_EQ(shop_.statements()[0], "SELECT pedido FROM pedpar WHERE id_salida = 71");
  EXPECT_EQ(shop_.statements()[6], "UPDATE pedidos SET estado = 'SU' WHERE pedido = 7");
  shop_.forgetStatements();
  ActualizaPorRecibir(shop_.ambiente(), "A1", 71, 1, false);
  ASSERT_EQ(shop_.statements().size(), 6u);
  EXPECT_EQ(shop_.statements()[0], "SELECT orden FROM ordpar WHERE partida = 71");
  EXPECT_EQ(shop_.statements()[5], "UPDATE orden SET estado = 'SU', tipo = 'OR' WHERE orden = 7");
  EXPECT_EQ(shop_.row("SELECT por_surt, por_recib FROM prods"), "15|14");
  shop_.forgetStatements();
  ActualizaPorSurtir(shop_.ambiente(), "A1", 999, 1);
  ActualizaPorRecibir(shop_.ambiente(), "A1", 999, 1);
  EXPECT_EQ(shop_.statements().size(), 2u);
}

TEST_P(Orders, WhatWasWrittenBeforeAFailureStays) {
  host::QueryPtr query;
  EXPECT_EQ(errorNumber([&] { ActualizaPorSurtirEnPedido("O'H", 71, 3, 7, shop_.ambiente(), true, query); }),
            data::provider_number::kStatementRefused);
  EXPECT_EQ(shop_.row("SELECT surtido, por_surt FROM pedpar WHERE id_salida = 71"), "3|7");
  EXPECT_EQ(shop_.scalar("SELECT estado FROM pedidos"), "PE");
  ASSERT_TRUE(query);
  EXPECT_TRUE(query->Fallo());
  shop_.run("DROP TABLE orden");
  EXPECT_EQ(errorNumber([&] { ActualizaPorSurtirEnOrden("A1", 71, 3, 7, shop_.ambiente()); }),
            data::provider_number::kNoSuchTable);
  EXPECT_EQ(shop_.scalar("SELECT surtido FROM ordpar WHERE partida = 71"), "3");
  EXPECT_EQ(errorNumber([&] { ActualizaPorSurtir(nullptr, "A1", 71, 1); }), error_number::kObjectNotSet);
  EXPECT_EQ(errorNumber([&] { ActualizaPorRecibir(nullptr, "A1", 71, 1); }), error_number::kObjectNotSet);
}

INSTANTIATE_TEST_SUITE_P(Engines, Orders, testing::ValuesIn(test::engines()), test::engineName);

}  // namespace
}  // namespace qvn::ledger
