// The commands that supply and receive lines of orders, on the demonstration's shop.
#include "tests/apps/demo_shop.h"

namespace qvn::test {
namespace {

class OrderCommand : public DemoShop {};
INSTANTIATE_TEST_SUITE_P(Engines, OrderCommand, testing::ValuesIn(shopEngines()), engineName);

TEST_P(OrderCommand, SurtirShowsBeforeAndAfter) {
  // Order 2002 has one line, 73: 4 of TAL-12, whose counter is 10.
  EXPECT_EQ(expectRun(0, call({"surtir", "73", "1.5"})).out,
            "partida 73  pedido  artículo  cantidad  surtido  por surtir  estado  por_surt del artículo\n"
            "──────────  ──────  ────────  ────────  ───────  ──────────  ──────  ─────────────────────\n"
            "antes         2002  TAL-12        4.00     0.00        4.00  PE                      10.00\n"
            "después       2002  TAL-12        4.00     1.50        2.50  SU                      11.50\n");
  EXPECT_EQ(expectRun(0, call({"surtir", "73", "2.5", "--sin-articulos"}, "es_ES.UTF-8")).out,
            "partida 73  pedido  artículo  cantidad  surtido  por surtir  estado\n"
            "──────────  ──────  ────────  ────────  ───────  ──────────  ──────\n"
            "antes         2002  TAL-12        4,00     1,50        2,50  SU\n"
            "después       2002  TAL-12        4,00     4,00        0,00  CE\n");
  // What was supplied is undone; the counter goes down with it.
  expectHolds(expectRun(0, call({"surtir", "73", "-4"})).out,
              {"antes         2002  TAL-12        4.00     4.00        0.00  CE                      11.50\n",
               "después       2002  TAL-12        4.00     0.00        4.00  PE                       7.50\n"});
  EXPECT_EQ(valuesOf("SELECT estado FROM pedidos ORDER BY pedido"), "CE PE");
}

TEST_P(OrderCommand, RecibirShowsBeforeAndAfter) {
  // All 60 of SIL-280 were received by the demonstration; its counter is 60 still.
  EXPECT_EQ(expectRun(0, call({"recibir", "84", "-5"})).out,
            "partida 84  orden  artículo  cantidad  surtido  por surtir  estado  por_recib del artículo\n"
            "──────────  ─────  ────────  ────────  ───────  ──────────  ──────  ──────────────────────\n"
            "antes        3001  SIL-280      60.00    60.00        0.00  CE                       60.00\n"
            "después      3001  SIL-280      60.00    55.00        5.00  SU                       55.00\n");
  expectHolds(expectRun(0, call({"recibir", "84", "5", "--sin-articulos"})).out,
              {"después      3001  SIL-280      60.00    60.00        0.00  CE\n"});
  EXPECT_EQ(numberOf("SELECT por_recib FROM prods WHERE articulo = 'SIL-280'"), 55);
}

TEST_P(OrderCommand, TellsOfWhatIsMissing) {
  EXPECT_EQ(expectRun(1, call({"surtir", "999", "1"}), {"qvn: no existe la partida 999 en «pedpar»\n"}).out, "");
  EXPECT_EQ(expectRun(1, call({"recibir", "-1", "1"}), {"qvn: no existe la partida -1 en «ordpar»\n"}).out, "");
  execute("DELETE FROM prods WHERE articulo = 'TAL-12'");
  expectHolds(expectRun(0, call({"surtir", "73", "1"})).out,
              {"después       2002  TAL-12        4.00     1.00        3.00  SU      (no existe)\n"});
  execute("DROP TABLE ordpar");
  expectRun(1, call({"recibir", "84", "1"}), {"error -2147217865", "ordpar"});
}

TEST_P(OrderCommand, SaysWhatAFailureLeaves) {
  execute("UPDATE pedpar SET articulo = 'DIA 1/2''' WHERE id_salida = 73");
  const std::string lines = "SELECT surtido FROM pedpar WHERE id_salida = 73";
  expectRun(1, call({"surtir", "73", "1"}), {"«DIA 1/2'»", "no se cambió nada", "--sin-articulos"});
  EXPECT_EQ(numberOf(lines), 0);
  expectRun(0, call({"surtir", "73", "1", "--sin-articulos"}));
  EXPECT_EQ(numberOf(lines), 1);

  execute("UPDATE pedpar SET pedido = NULL WHERE id_salida = 73");
  expectRun(1, call({"surtir", "73", "1", "--sin-articulos"}),
            {"qvn: falló la partida 73; lo que se escribió antes de la falla queda escrito\n", "error 94"});
}

}  // namespace
}  // namespace qvn::test
