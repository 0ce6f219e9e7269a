#include "apps/qvn/demo/shop_database.h"

#include <algorithm>
#include <array>
#include <string>

#include "qvn/core/dialect.h"
#include "qvn/data/provider_error.h"

namespace qvn::cli::demo {
namespace {

struct Table {
  std::string_view name;
  std::string_view columns;
};

constexpr Table kMark{"qvn_demo", "version INTEGER NOT NULL PRIMARY KEY"};

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

void createTable(data::Connection& connection, const Table& table) {
  // An older server's own character set may not hold every name.
  const std::string_view options = core::hasMarker(connection, core::marker::kMySql) ? " DEFAULT CHARSET=utf8mb4" : "";
  connection.Execute("CREATE TABLE " + std::string(table.name) + " (" + std::string(table.columns) + ")" +
                     std::string(options));
}

std::string quoted(std::string_view text) { return "'" + std::string(text) + "'"; }

std::string values(const Customer& customer) {
  return quoted(customer.code) + ", " + quoted(customer.name) + ", " + quoted(customer.city) + ", 0";
}

std::string values(const Document& document) {
  return std::to_string(document.number) + ", " + quoted(document.customer) + ", " + quoted(document.date) + ", " +
         quoted(document.currency) + ", " + std::string(document.exchangeRate) + ", 0, 'P'";
}

std::string values(const Movement& movement) {
  return std::to_string(movement.number) + ", " + std::to_string(movement.document) + ", " + quoted(movement.date) +
         ", '" + static_cast<char>(movement.kind) + "', " + quoted(movement.reason) + ", " +
         std::string(movement.amount) + ", " + (movement.payment == 0 ? "NULL" : std::to_string(movement.payment));
}

std::string values(const Payment& payment) {
  const std::string amount(payment.amount);
  return std::to_string(payment.number) + ", " + quoted(payment.customer) + ", " + quoted(payment.date) + ", " +
         quoted(payment.currency) + ", " + amount + ", " + amount + ", 0";
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
  if (tableExists(*connection, kMark.name)) return Ownership::Ours;
  const bool isForeign =
      std::ranges::any_of(kTables, [&](const Table& table) { return tableExists(*connection, table.name); });
  return isForeign ? Ownership::Foreign : Ownership::Vacant;
}

void buildShop(const data::ConnectionPtr& connection) {
  connection->Execute("DROP TABLE IF EXISTS " + std::string(kMark.name));
  createTable(*connection, kMark);
  for (const Table& table : kTables) {
    connection->Execute("DROP TABLE IF EXISTS " + std::string(table.name));
    createTable(*connection, table);
  }
  insertRows(*connection, "clients", kCustomers);
  insertRows(*connection, "cobranza", kDocuments);
  insertRows(*connection, "cobdet", kMovements);
  insertRows(*connection, "caja", kPayments);
}

void insertPayment(const data::ConnectionPtr& connection, const Payment& payment) {
  insertRows(*connection, "caja", std::array{payment});
}

void insertMovements(const data::ConnectionPtr& connection, std::span<const Movement> movements) {
  insertRows(*connection, "cobdet", movements);
}

}  // namespace qvn::cli::demo
