#include "tests/ledger/shop.h"

namespace qvn::test {

Shop::Shop(const Engine& engine)
    : database_(engine.create()), setup_(database_->connect()), connection_(database_->connect()) {
  for (const char* sql : {
           "CREATE TABLE clients (cliente VARCHAR(20) NOT NULL PRIMARY KEY, saldo DOUBLE PRECISION)",
           "CREATE TABLE cobranza (cobranza INTEGER NOT NULL PRIMARY KEY, cliente VARCHAR(20), saldo DOUBLE PRECISION, "
           "tip_cam "
           "DOUBLE PRECISION, "
           "estado CHAR(1))",
           "CREATE TABLE cobdet (id INTEGER NOT NULL PRIMARY KEY, cobranza INTEGER, cargo_ab CHAR(1), importe DOUBLE "
           "PRECISION, "
           "abono INTEGER)",
           "CREATE TABLE caja (abono INTEGER NOT NULL PRIMARY KEY, importe DOUBLE PRECISION, por_apli DOUBLE "
           "PRECISION, "
           "aplicado INTEGER)",
           "INSERT INTO clients VALUES ('ÑU-1', 0)",
           "INSERT INTO clients VALUES ('B2', 7)",
           "INSERT INTO cobranza VALUES (10, 'ÑU-1', 0, 1, 'P')",
           "INSERT INTO cobranza VALUES (11, 'ÑU-1', 100, 17.05, 'P')",
           "INSERT INTO cobranza VALUES (20, 'B2', 0, 1, 'P')",
       }) {
    run(sql);
  }
  connection_->setStatementObserver([this](std::string_view sql) { statements_.emplace_back(sql); });
}

std::string Shop::scalar(std::string_view sql) {
  const Variant value = setup_->Execute(sql)->Fields(0).Value();
  return value.isNull() ? "(null)" : value.toText();
}

std::string Shop::row(std::string_view sql) {
  const auto rows = setup_->Execute(sql);
  std::string text;
  for (std::size_t i = 0; i < rows->FieldCount(); ++i) {
    const Variant& value = rows->Fields(i).Value();
    text += (i == 0 ? "" : "|") + (value.isNull() ? "(null)" : value.toText());
  }
  return text;
}

}  // namespace qvn::test
