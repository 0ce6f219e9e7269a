#include "bench/ledger/ledger_shops.h"

namespace qvn::bench {
namespace {

constexpr const char* kNumbers = "CREATE TABLE n (i INTEGER PRIMARY KEY)";
constexpr const char* kProducts =
    "CREATE TABLE prods (articulo VARCHAR(20) PRIMARY KEY, existencia DOUBLE, en_venta DOUBLE, por_surt DOUBLE, "
    "por_recib DOUBLE, precio1 DOUBLE, precio2 DOUBLE, precio3 DOUBLE, precio4 DOUBLE, precio5 DOUBLE, "
    "precio6 DOUBLE, precio7 DOUBLE, precio8 DOUBLE, precio9 DOUBLE, precio10 DOUBLE)";
constexpr const char* kFillProducts =
    "INSERT INTO prods SELECT i, 14, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10.5 FROM n WHERE i < 50";
static_assert(kOwners == 50);
constexpr const char* kCounters = "CREATE TABLE consec (dato VARCHAR(20) PRIMARY KEY, consec INTEGER)";

}  // namespace

std::string fillNumbersText() {
  std::string sql = "INSERT INTO n VALUES (0)";
  for (int i = 1; i < kCalls; ++i) sql += ", (" + std::to_string(i) + ")";
  return sql;
}

const Shop& receivables() {
  static const Shop kShop{
      {kNumbers, fillNumbersText(), "CREATE TABLE clients (cliente VARCHAR(20) PRIMARY KEY, saldo DOUBLE)",
       "CREATE TABLE cobranza (cobranza INTEGER PRIMARY KEY, cliente VARCHAR(20), saldo DOUBLE, tip_cam DOUBLE, "
       "estado CHAR(1))",
       "CREATE TABLE cobdet (id INTEGER PRIMARY KEY, cobranza INTEGER, cargo_ab CHAR(1), importe DOUBLE, abono "
       "INTEGER)",
       "CREATE TABLE caja (abono INTEGER PRIMARY KEY, importe DOUBLE, por_apli DOUBLE, aplicado INTEGER)",
       "CREATE INDEX cobdet_cobranza ON cobdet (cobranza)", "CREATE INDEX cobdet_abono ON cobdet (abono)",
       "CREATE INDEX cobranza_cliente ON cobranza (cliente)", "INSERT INTO clients SELECT i, 0 FROM n WHERE i < 50",
       "INSERT INTO cobranza SELECT i, i % 50, 0, 1, 'S' FROM n",
       "INSERT INTO cobdet SELECT 3 * i, i, 'C', 1500.5, NULL FROM n",
       "INSERT INTO cobdet SELECT 3 * i + 1, i, 'A', 500.25, i FROM n",
       "INSERT INTO cobdet SELECT 3 * i + 2, i, 'A', 120, i FROM n",
       "INSERT INTO caja SELECT i, 620.25, 620.25, 0 FROM n"},
      {"UPDATE clients SET saldo = 0", "UPDATE cobranza SET saldo = 0, estado = 'S'",
       "UPDATE caja SET por_apli = importe, aplicado = 0"}};
  return kShop;
}

const Shop& payables() {
  static const Shop kShop{
      {kNumbers, fillNumbersText(), "CREATE TABLE proveed (proveedor VARCHAR(20) PRIMARY KEY, saldo DOUBLE)",
       "CREATE TABLE cuenxpag (cuenxpag INTEGER PRIMARY KEY, proveedor VARCHAR(20), saldo DOUBLE, tip_cam DOUBLE, "
       "estado CHAR(1))",
       "CREATE TABLE cuenxpdet (id INTEGER PRIMARY KEY, cuenxpag INTEGER, cargo_ab CHAR(1), importe DOUBLE, abono "
       "INTEGER)",
       "CREATE TABLE pagos (abono INTEGER PRIMARY KEY, importe DOUBLE, por_apli DOUBLE)",
       "CREATE INDEX cuenxpdet_cuenxpag ON cuenxpdet (cuenxpag)", "CREATE INDEX cuenxpdet_abono ON cuenxpdet (abono)",
       "CREATE INDEX cuenxpag_proveedor ON cuenxpag (proveedor)", "INSERT INTO proveed SELECT i, 0 FROM n WHERE i < 50",
       "INSERT INTO cuenxpag SELECT i, i % 50, 0, 1, 'S' FROM n",
       "INSERT INTO cuenxpdet SELECT 3 * i, i, 'C', 1500.5, NULL FROM n",
       "INSERT INTO cuenxpdet SELECT 3 * i + 1, i, 'A', 500.25, i FROM n",
       "INSERT INTO cuenxpdet SELECT 3 * i + 2, i, 'A', 120, i FROM n", "INSERT INTO pagos SELECT i, 1000, 0 FROM n"},
      {"UPDATE proveed SET saldo = 0", "UPDATE cuenxpag SET saldo = 0, estado = 'S'", "UPDATE pagos SET por_apli = 0"}};
  return kShop;
}

const Shop& customerOrders() {
  static const Shop kShop{
      {kNumbers, fillNumbersText(), kProducts, kFillProducts,
       "CREATE TABLE pedidos (pedido INTEGER PRIMARY KEY, estado VARCHAR(2), tipo VARCHAR(2))",
       "CREATE TABLE pedpar (id_salida INTEGER PRIMARY KEY, pedido INTEGER, articulo VARCHAR(20), cantidad DOUBLE, "
       "surtido DOUBLE, por_surt DOUBLE)",
       "CREATE INDEX pedpar_pedido ON pedpar (pedido)", "CREATE INDEX pedpar_articulo ON pedpar (articulo)",
       "INSERT INTO pedidos SELECT i, 'PE', 'PE' FROM n",
       "INSERT INTO pedpar SELECT i, i % 250, i % 50, 10, 0, 10 FROM n"},
      {"UPDATE prods SET por_surt = 0", "UPDATE pedidos SET estado = 'PE'",
       "UPDATE pedpar SET surtido = 0, por_surt = cantidad"}};
  return kShop;
}

const Shop& purchaseOrders() {
  static const Shop kShop{
      {kNumbers, fillNumbersText(), kProducts, kFillProducts,
       "CREATE TABLE orden (orden INTEGER PRIMARY KEY, estado VARCHAR(2), tipo VARCHAR(2))",
       "CREATE TABLE ordpar (partida INTEGER PRIMARY KEY, orden INTEGER, articulo VARCHAR(20), cantidad DOUBLE, "
       "surtido DOUBLE, por_surt DOUBLE)",
       "CREATE INDEX ordpar_orden ON ordpar (orden)", "INSERT INTO orden SELECT i, 'PE', 'RE' FROM n",
       "INSERT INTO ordpar SELECT i, i % 250, i % 50, 10, 0, 10 FROM n"},
      {"UPDATE prods SET por_recib = 0", "UPDATE orden SET estado = 'PE', tipo = 'RE'",
       "UPDATE ordpar SET surtido = 0, por_surt = cantidad"}};
  return kShop;
}

const Shop& stock() {
  static const Shop kShop{
      {kNumbers, fillNumbersText(), kProducts, kFillProducts,
       "CREATE TABLE partvta (id INTEGER PRIMARY KEY, venta INTEGER, articulo VARCHAR(20), almacen INTEGER, "
       "cantidad DOUBLE, estado VARCHAR(2))",
       "CREATE TABLE invfis (inventario INTEGER PRIMARY KEY, almacen INTEGER, ubicacion VARCHAR(20), "
       "porubicacion INTEGER, estado VARCHAR(2))",
       "CREATE INDEX partvta_articulo ON partvta (articulo)", "CREATE INDEX invfis_almacen ON invfis (almacen)",
       "INSERT INTO partvta SELECT i, i, i % 50, 1, 2.5, 'PE' FROM n",
       "INSERT INTO invfis SELECT i, i, i % 50, 1, 'PE' FROM n"},
      {"UPDATE prods SET en_venta = 0"}};
  return kShop;
}

const Shop& lots() {
  static const std::string kMovements = "INSERT INTO slotes SELECT i, i, i, 5 FROM n";
  static const Shop kShop{
      {kNumbers, fillNumbersText(),
       "CREATE TABLE lotes (id INTEGER PRIMARY KEY, lote VARCHAR(20), cantidad DOUBLE, cantsal DOUBLE)",
       "CREATE TABLE slotes (id INTEGER PRIMARY KEY, id_salida INTEGER, lote VARCHAR(20), cantidad DOUBLE)",
       "CREATE INDEX lotes_lote ON lotes (lote)", "CREATE INDEX slotes_salida ON slotes (id_salida)",
       "INSERT INTO lotes SELECT i, i, 10, 3 FROM n", "INSERT INTO lotes SELECT i + 500, i, 10, 3 FROM n", kMovements},
      {"UPDATE lotes SET cantsal = 3", "DELETE FROM slotes", kMovements}};
  static_assert(kCalls == 500);
  return kShop;
}

const Shop& prices() {
  static const Shop kShop{
      {kNumbers, fillNumbersText(), kProducts, kFillProducts, kCounters,
       "CREATE TABLE histcamb (id INTEGER PRIMARY KEY, articulo VARCHAR(20), sucursal INTEGER, usuario VARCHAR(20), "
       "usufecha DATE, usuhora VARCHAR(8), existencia DOUBLE, precio1 DOUBLE, precio2 DOUBLE, precio3 DOUBLE, "
       "precio4 DOUBLE, precio5 DOUBLE, precio6 DOUBLE, precio7 DOUBLE, precio8 DOUBLE, precio9 DOUBLE, "
       "precio10 DOUBLE, precioold1 DOUBLE, precioold2 DOUBLE, precioold3 DOUBLE, precioold4 DOUBLE, "
       "precioold5 DOUBLE, precioold6 DOUBLE, precioold7 DOUBLE, precioold8 DOUBLE, precioold9 DOUBLE, "
       "precioold10 DOUBLE)"},
      {"DELETE FROM histcamb", "DELETE FROM consec"}};
  return kShop;
}

const Shop& counters() {
  static const Shop kShop{{kCounters, "INSERT INTO consec VALUES ('VENTAS', 1042)"},
                          {"UPDATE consec SET consec = 1042"}};
  return kShop;
}

}  // namespace qvn::bench
