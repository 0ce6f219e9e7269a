#include "bench/sales/shop_tables.h"

#include <array>
#include <functional>

namespace qvn::sales {
namespace {

struct Table {
  const char* name;
  const char* columns;
};
constexpr auto kTables = std::to_array<Table>({
    {"consec", "dato VARCHAR(20) NOT NULL PRIMARY KEY, consec INT"},
    {"clients", "cliente VARCHAR(20) NOT NULL PRIMARY KEY, saldo DECIMAL(14,2)"},
    {"prods", "articulo VARCHAR(20) NOT NULL PRIMARY KEY, por_surt DECIMAL(14,2), existencia DECIMAL(14,2)"},
    {"pedidos", "pedido INT PRIMARY KEY, estado CHAR(2)"},
    {"pedpar",
     "id_salida INT PRIMARY KEY, pedido INT, articulo VARCHAR(20), cantidad DECIMAL(14,2), surtido DECIMAL(14,2), "
     "por_surt DECIMAL(14,2), KEY (pedido)"},
    {"cobranza",
     "cobranza INT PRIMARY KEY, cliente VARCHAR(20), saldo DECIMAL(14,2), tip_cam DECIMAL(10,4), estado CHAR(1), KEY "
     "(cliente)"},
    {"cobdet",
     "id BIGINT AUTO_INCREMENT PRIMARY KEY, cobranza INT, cargo_ab CHAR(1), importe DECIMAL(12,2), abono INT, KEY "
     "(cobranza), KEY (abono)"},
    {"caja", "abono INT PRIMARY KEY, importe DECIMAL(12,2), por_apli DECIMAL(12,2), aplicado INT"},
});

// Rows in statements of a length that every server takes.
void insertRows(data::Connection& connection, const std::string& table, std::int32_t count,
                const std::function<std::string(std::int32_t)>& row) {
  constexpr std::int32_t kRowsPerStatement = 500;
  std::string sql;
  for (std::int32_t i = 1; i <= count; ++i) {
    sql += (sql.empty() ? "INSERT INTO " + table + " VALUES (" : ", (") + row(i) + ")";
    if (i % kRowsPerStatement != 0 && i != count) continue;
    connection.Execute(sql);
    sql.clear();
  }
}

std::string quoted(const std::string& text) { return "'" + text + "'"; }

std::int32_t countRows(data::Connection& connection, const std::string& table) {
  return connection.Execute("SELECT COUNT(*) FROM " + table)->Fields(0).Value().toLong();
}

}  // namespace

std::int32_t orderOfLine(std::int32_t line) { return (line - 1) / kLinesPerOrder + 1; }
std::int32_t productOfLine(std::int32_t line, const ShopSize& size) { return (line - 1) % size.products + 1; }
std::string customerCode(std::int32_t customer) { return "C-" + std::to_string(customer); }
std::string productCode(std::int32_t product) { return "A-" + std::to_string(product); }

void createShop(data::Connection& connection, const ShopSize& size) {
  for (const Table& table : kTables) {
    connection.Execute("DROP TABLE IF EXISTS " + std::string(table.name));
    connection.Execute("CREATE TABLE " + std::string(table.name) + " (" + table.columns + ") ENGINE=InnoDB");
  }
  insertRows(connection, "clients", size.customers, [](std::int32_t i) { return quoted(customerCode(i)) + ", 0"; });
  insertRows(connection, "prods", size.products,
             [](std::int32_t i) { return quoted(productCode(i)) + ", 0, 1000000"; });
  insertRows(connection, "pedidos", size.orders, [](std::int32_t i) { return std::to_string(i) + ", 'PE'"; });
  insertRows(connection, "pedpar", size.orders * kLinesPerOrder, [&](std::int32_t i) {
    const std::string ordered = std::to_string(kOrderedPerLine);
    return std::to_string(i) + ", " + std::to_string(orderOfLine(i)) + ", " +
           quoted(productCode(productOfLine(i, size))) + ", " + ordered + ", 0, " + ordered;
  });
}

ShopSize shopSize(data::Connection& connection) {
  return {countRows(connection, "clients"), countRows(connection, "prods"), countRows(connection, "pedidos")};
}

}  // namespace qvn::sales
