// The commands for lots and prices, on the demonstration's shop.
#include "tests/apps/demo_shop.h"

namespace qvn::test {
namespace {

class StockCommand : public DemoShop {};
INSTANTIATE_TEST_SUITE_P(Engines, StockCommand, testing::ValuesIn(shopEngines()), engineName);

TEST_P(StockCommand, LotesShowsBeforeAndAfter) {
  // 22 do not fit into lot 43, 24 less the 6 that are out; it is filled, and 22 - 6 = 16 go on to lot 40.
  execute("UPDATE lotes SET cantsal = 6 WHERE id = 43");
  execute("INSERT INTO lotes VALUES (40, 'L-2603', 'SIL-280', 24, 1)");
  execute("UPDATE slotes SET cantidad = 22 WHERE id_salida = 906");
  execute("INSERT INTO slotes VALUES (9, 906, 'L-2511', 1)");
  EXPECT_EQ(expectRun(0, call({"lotes", "906"})).out,
            "id  lote    cantidad  cantsal antes  cantsal\n"
            "──  ──────  ────────  ─────────────  ───────\n"
            "41  L-2511     12.00           8.00     9.00\n"
            "43  L-2603     24.00           6.00    24.00\n"
            "40  L-2603     24.00           1.00    17.00\n"
            "(2 movimientos)\n");
  EXPECT_EQ(expectRun(1, call({"lotes", "906"}), {"qvn: la salida 906 no tiene movimientos en «slotes»\n"}).out, "");
  EXPECT_EQ(numberOf("SELECT cantsal FROM lotes WHERE id = 40"), 17);
}

TEST_P(StockCommand, LotesTellsOfNullAndMissingTables) {
  execute("UPDATE slotes SET cantidad = NULL");
  expectRun(1, call({"lotes", "906"}), {"error 94"});
  EXPECT_EQ(valuesOf("SELECT COUNT(*) FROM slotes"), "1");
  execute("DROP TABLE slotes");
  expectRun(1, call({"lotes", "906"}), {"error -2147217865", "slotes"});
}

TEST_P(StockCommand, PreciosListsTheHistory) {
  execute("UPDATE histcamb SET usufecha = '2026-03-06', usuhora = '10:42:07'");
  const std::string expected =
      "id  fecha       hora      sucursal  usuario  existencia  precio     antes   después\n"
      "──  ──────────  ────────  ────────  ───────  ──────────  ──────  ────────  ────────\n"
      " 1  06/03/2026  10:42:07         1  MARIA         14.00       1  1,290.00  1,390.00\n"
      " 1  06/03/2026  10:42:07         1  MARIA         14.00       2  1,190.00  1,285.00\n";
  EXPECT_EQ(expectRun(0, call({"precios", "TAL-12"})).out, expected);
  EXPECT_EQ(expectRun(0, call({"precios", " TAL-12 "})).out, expected);
  // The history of a product that is gone is there still.
  execute("DELETE FROM prods WHERE articulo = 'TAL-12'");
  EXPECT_EQ(expectRun(0, call({"precios", "TAL-12"})).out, expected);
  const std::string none = expectRun(0, call({"precios", "DIS-45"})).out;
  EXPECT_TRUE(none.starts_with("id  fecha")) << none;
  EXPECT_EQ(none.find("MARIA"), std::string::npos) << none;
}

TEST_P(StockCommand, PreciosRecordsAChange) {
  expectRun(0, call({"precios", "TAL-12", "1400.5", "0", "3", "4", "5", "6", "7", "8", "9", "10", "--usuario",
                     "O'Brien", "--sucursal", "2"}));
  EXPECT_EQ(valuesOf("SELECT usuario FROM histcamb WHERE id = 2 AND sucursal = 2"), "O'Brien");
  EXPECT_EQ(numberOf("SELECT precio1 + 100 * precio3 + 1000 * precio10 FROM histcamb WHERE id = 2"),
            1400.5 + 300 + 10000);
  EXPECT_EQ(numberOf("SELECT precio1 FROM prods WHERE articulo = 'TAL-12'"), 1390) << "not its business";
  const std::string told = expectRun(0, call({"precios", "SIL-280", "81.25"})).out;
  expectHolds(told, {"       1  79.90    81.25\n", "       2  72.00     0.00\n", "  <NULL>  "});
  EXPECT_EQ(numberOf("SELECT existencia FROM histcamb WHERE id = 3"), 52);
}

TEST_P(StockCommand, PreciosTellsOfUnknownProducts) {
  expectRun(1, call({"precios", "NADA"}), {"qvn: no existe el artículo «NADA» en «prods» ni en «histcamb»\n"});
  expectRun(1, call({"precios", "NADA", "1"}), {"qvn: no existe el artículo «NADA» en «prods»\n"});
  EXPECT_EQ(valuesOf("SELECT COUNT(*) FROM histcamb"), "1");
  execute("DROP TABLE histcamb");
  expectRun(1, call({"precios", "TAL-12"}), {"error -2147217865", "histcamb"});
}

}  // namespace
}  // namespace qvn::test
