#include "shop.h"

#include <filesystem>

namespace mostrador {
namespace {

constexpr const char* kTables[] = {
    "CREATE TABLE prods (articulo VARCHAR(20) PRIMARY KEY, descrip VARCHAR(60), precio1 DOUBLE, existencia DOUBLE)",
    "CREATE TABLE clients (cliente VARCHAR(10) PRIMARY KEY, nombre VARCHAR(60), saldo DOUBLE)",
    "CREATE TABLE cobranza (cobranza INTEGER PRIMARY KEY, cliente VARCHAR(10), fecha DATE, tip_cam DOUBLE, "
    "saldo DOUBLE, estado VARCHAR(1))",
    "CREATE TABLE cobdet (id INTEGER PRIMARY KEY, cobranza INTEGER, cargo_ab VARCHAR(1), importe DOUBLE, "
    "abono INTEGER)",
    "CREATE TABLE caja (abono INTEGER PRIMARY KEY, cliente VARCHAR(10), fecha DATE, importe DOUBLE, "
    "por_apli DOUBLE, aplicado INTEGER)",
    "CREATE TABLE partvta (id INTEGER PRIMARY KEY, venta INTEGER, articulo VARCHAR(20), cantidad DOUBLE, "
    "precio DOUBLE, almacen INTEGER, estado VARCHAR(2))",
    "CREATE TABLE consec (dato VARCHAR(20) PRIMARY KEY, consec INTEGER)",
    "INSERT INTO consec VALUES ('VENTAS', 0), ('ABONOS', 0)",
    "INSERT INTO clients VALUES ('MOSTRADOR', 'Público en general', 0)",
    "INSERT INTO prods VALUES ('TAL-12', 'Taladro percutor 1/2\"', 1290.00, 14), "
    "('DIS-45', 'Disco de corte 4 1/2\"', 38.50, 120), ('PIN-19', 'Pintura vinílica blanca 19 L', 1845.00, 6), "
    "('SIL-280', 'Silicón transparente 280 ml', 79.90, 52), ('CIN-33', 'Cinta de aislar negra', 21.75, 200), "
    "('BRO-08', 'Brocha de cerda 2\"', 46.20, 35), ('CLA-25', 'Clavo estándar 2 1/2\", kilo', 39.00, 80)",
};

Product productOf(qvn::data::Recordset& rows) {
  return {rows.Fields("articulo").Value().toText(), rows.Fields("descrip").Value().toText(),
          toCents(rows.Fields("precio1").Value().toDouble()), rows.Fields("existencia").Value().toDouble()};
}

}  // namespace

qvn::data::ConnectionPtr openShop(const qvn::LumLibreria& library, std::string_view file) {
  const bool isNew = !std::filesystem::exists(std::filesystem::path(file));
  auto shop = library.NewSQLite();
  shop->Open("Provider=SQLite;Mode=ReadWriteCreate;Data Source=" + std::string(file));
  if (isNew) {
    for (const char* sql : kTables) shop->Execute(sql);
  }
  return shop;
}

std::optional<Product> findProduct(const qvn::LumLibreria& library, const qvn::data::ConnectionPtr& shop,
                                   std::string_view code) {
  const auto rows =
      library.CreaRecordSet("SELECT * FROM prods WHERE articulo = " + shop->Literal(qvn::Variant(code)), shop);
  if (rows->Eof()) return std::nullopt;
  return productOf(*rows);
}

std::vector<Product> searchProducts(const qvn::data::ConnectionPtr& shop, std::string_view text) {
  const std::string pattern = shop->Literal("%" + std::string(text) + "%");
  std::vector<Product> products;
  const auto rows = shop->Execute("SELECT * FROM prods WHERE articulo LIKE " + pattern + " OR descrip LIKE " + pattern +
                                  " ORDER BY descrip LIMIT 50");
  for (; !rows->Eof(); rows->MoveNext()) products.push_back(productOf(*rows));
  return products;
}

}  // namespace mostrador
