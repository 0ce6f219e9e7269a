#include "apps/qvn/demo/shop_database.h"

#include <algorithm>
#include <array>
#include <string>

#include "apps/qvn/demo/shop_rows.h"
#include "qvn/core/dialect.h"
#include "qvn/data/provider_error.h"

namespace qvn::cli::demo {
namespace {

struct Table {
  std::string_view name;
  std::string_view columns;
};

constexpr Table kMark{"qvn_demo", "version INTEGER NOT NULL PRIMARY KEY"};
constexpr int kVersion = 3;
// A mark of an older version stands for the tables that there were then; the first one had no row.
constexpr std::size_t kTablesOfVersion1 = 4;
constexpr std::size_t kTablesOfVersion2 = 13;

constexpr auto kTables = std::to_array<Table>({
    {"clients",
     "cliente VARCHAR(10) NOT NULL PRIMARY KEY, nombre VARCHAR(60), ciudad VARCHAR(40), saldo DECIMAL(12,2)"},
    {"cobranza",
     "cobranza INTEGER NOT NULL PRIMARY KEY, cliente VARCHAR(10), fecha DATE, moneda VARCHAR(3), "
     "tip_cam DECIMAL(10,4), saldo DECIMAL(12,2), estado VARCHAR(1)"},
    {"cobdet",
     "cobdet INTEGER NOT NULL PRIMARY KEY, cobranza INTEGER, fecha DATE, cargo_ab VARCHAR(1), concepto VARCHAR(40), "
     "importe DECIMAL(12,2), abono INTEGER"},
    {"caja",
     "abono INTEGER NOT NULL PRIMARY KEY, cliente VARCHAR(10), fecha DATE, moneda VARCHAR(3), importe DECIMAL(12,2), "
     "por_apli DECIMAL(12,2), aplicado INTEGER"},
    {"prods",
     "articulo VARCHAR(20) NOT NULL PRIMARY KEY, descrip VARCHAR(60), existencia DECIMAL(12,2), "
     "por_surt DECIMAL(12,2), por_recib DECIMAL(12,2), precio1 DECIMAL(12,2), precio2 DECIMAL(12,2), "
     "precio3 DECIMAL(12,2), precio4 DECIMAL(12,2), precio5 DECIMAL(12,2), precio6 DECIMAL(12,2), "
     "precio7 DECIMAL(12,2), precio8 DECIMAL(12,2), precio9 DECIMAL(12,2), precio10 DECIMAL(12,2)"},
    {"pedidos", "pedido INTEGER NOT NULL PRIMARY KEY, cliente VARCHAR(10), fecha DATE, estado VARCHAR(2)"},
    {"pedpar",
     "id_salida INTEGER NOT NULL PRIMARY KEY, pedido INTEGER, articulo VARCHAR(20), cantidad DECIMAL(12,2), "
     "surtido DECIMAL(12,2), por_surt DECIMAL(12,2)"},
    {"orden",
     "orden INTEGER NOT NULL PRIMARY KEY, proveedor VARCHAR(10), fecha DATE, estado VARCHAR(2), tipo VARCHAR(2)"},
    {"ordpar",
     "partida INTEGER NOT NULL PRIMARY KEY, orden INTEGER, articulo VARCHAR(20), cantidad DECIMAL(12,2), "
     "surtido DECIMAL(12,2), por_surt DECIMAL(12,2)"},
    {"lotes",
     "id INTEGER NOT NULL PRIMARY KEY, lote VARCHAR(20), articulo VARCHAR(20), cantidad DECIMAL(12,2), "
     "cantsal DECIMAL(12,2)"},
    {"slotes", "id INTEGER NOT NULL PRIMARY KEY, id_salida INTEGER, lote VARCHAR(20), cantidad DECIMAL(12,2)"},
    {"histcamb",
     "id INTEGER NOT NULL PRIMARY KEY, articulo VARCHAR(20), sucursal INTEGER, usuario VARCHAR(20), usufecha DATE, "
     "usuhora VARCHAR(8), existencia DECIMAL(12,2), precio1 DECIMAL(12,2), precio2 DECIMAL(12,2), "
     "precio3 DECIMAL(12,2), precio4 DECIMAL(12,2), precio5 DECIMAL(12,2), precio6 DECIMAL(12,2), "
     "precio7 DECIMAL(12,2), precio8 DECIMAL(12,2), precio9 DECIMAL(12,2), precio10 DECIMAL(12,2), "
     "precioold1 DECIMAL(12,2), precioold2 DECIMAL(12,2), precioold3 DECIMAL(12,2), precioold4 DECIMAL(12,2), "
     "precioold5 DECIMAL(12,2), precioold6 DECIMAL(12,2), precioold7 DECIMAL(12,2), precioold8 DECIMAL(12,2), "
     "precioold9 DECIMAL(12,2), precioold10 DECIMAL(12,2)"},
    {"consec", "dato VARCHAR(20) NOT NULL PRIMARY KEY, consec INTEGER"},
    {"proveed",
     "proveedor VARCHAR(10) NOT NULL PRIMARY KEY, nombre VARCHAR(60), ciudad VARCHAR(40), saldo DECIMAL(12,2)"},
    {"cuenxpag",
     "cuenxpag INTEGER NOT NULL PRIMARY KEY, proveedor VARCHAR(10), fecha DATE, moneda VARCHAR(3), "
     "tip_cam DECIMAL(10,4), saldo DECIMAL(12,2), estado VARCHAR(1)"},
    {"cuenxpdet",
     "cuenxpdet INTEGER NOT NULL PRIMARY KEY, cuenxpag INTEGER, fecha DATE, cargo_ab VARCHAR(1), "
     "concepto VARCHAR(40), importe DECIMAL(12,2), abono INTEGER"},
    {"pagos",
     "abono INTEGER NOT NULL PRIMARY KEY, proveedor VARCHAR(10), fecha DATE, moneda VARCHAR(3), "
     "importe DECIMAL(12,2), por_apli DECIMAL(12,2)"},
});

bool tableExists(data::Connection& connection, std::string_view name) {
  try {
    connection.Execute("SELECT 1 FROM " + std::string(name) + " WHERE 1 = 0");
  } catch (const data::ProviderError& error) {
    if (error.number() == data::provider_number::kNoSuchTable) return false;
    throw;
  }
  return true;
}

// How many of kTables the mark says are ours.
std::size_t markedTables(data::Connection& connection) {
  if (!tableExists(connection, kMark.name)) return 0;
  const Variant version = connection.Execute("SELECT MAX(version) FROM " + std::string(kMark.name))->Fields(0).Value();
  if (version.isNull()) return kTablesOfVersion1;
  return version.toLong() < kVersion ? kTablesOfVersion2 : kTables.size();
}

void createTable(data::Connection& connection, const Table& table) {
  // An older server's own character set may not hold every name.
  const std::string_view options = core::hasMarker(connection, core::marker::kMySql) ? " DEFAULT CHARSET=utf8mb4" : "";
  connection.Execute("CREATE TABLE " + std::string(table.name) + " (" + std::string(table.columns) + ")" +
                     std::string(options));
}

// One statement for all rows, in the order of the table's columns.
template <typename Rows>
void insertRows(data::Connection& connection, std::string_view table, const Rows& rows) {
  std::string sql = "INSERT INTO " + std::string(table) + " VALUES ";
  std::string_view separator;
  for (const auto& row : rows) {
    sql.append(separator).append("(").append(values(row)).append(")");
    separator = ", ";
  }
  connection.Execute(sql);
}

}  // namespace

Ownership findOwnership(const data::ConnectionPtr& connection) {
  const std::size_t marked = markedTables(*connection);
  const auto unmarked = std::span(kTables).subspan(marked);
  const bool isForeign =
      std::ranges::any_of(unmarked, [&](const Table& table) { return tableExists(*connection, table.name); });
  if (isForeign) return Ownership::Foreign;
  return marked > 0 ? Ownership::Ours : Ownership::Vacant;
}

void buildShop(const data::ConnectionPtr& connection) {
  if (!tableExists(*connection, kMark.name)) createTable(*connection, kMark);
  if (markedTables(*connection) < kTables.size()) {
    connection->Execute("INSERT INTO " + std::string(kMark.name) + " VALUES (" + std::to_string(kVersion) + ")");
  }
  for (const Table& table : kTables) {
    connection->Execute("DROP TABLE IF EXISTS " + std::string(table.name));
    createTable(*connection, table);
  }
  insertRows(*connection, "clients", kCustomers);
  insertRows(*connection, "cobranza", kDocuments);
  insertRows(*connection, "cobdet", kMovements);
  insertRows(*connection, "caja", kPayments);
  insertRows(*connection, "prods", kProducts);
  insertRows(*connection, "pedidos", kOrders);
  insertRows(*connection, "pedpar", kOrderLines);
  insertRows(*connection, "orden", kPurchaseOrders);
  insertRows(*connection, "ordpar", kPurchaseLines);
  insertRows(*connection, "lotes", kLots);
  insertRows(*connection, "slotes", kLotMovements);
  insertRows(*connection, "consec", kCounters);
  insertRows(*connection, "proveed", kSuppliers);
  insertRows(*connection, "cuenxpag", kPayableDocuments);
  insertRows(*connection, "cuenxpdet", kPayableMovements);
}

void insertPayment(const data::ConnectionPtr& connection, const Payment& payment) {
  insertRows(*connection, "caja", std::array{payment});
}

void insertMovements(const data::ConnectionPtr& connection, std::span<const Movement> movements) {
  insertRows(*connection, "cobdet", movements);
}

void insertSupplierPayment(const data::ConnectionPtr& connection, const SupplierPayment& payment) {
  insertRows(*connection, "pagos", std::array{payment});
}

void insertPayableMovements(const data::ConnectionPtr& connection, std::span<const Movement> movements) {
  insertRows(*connection, "cuenxpdet", movements);
}

}  // namespace qvn::cli::demo
