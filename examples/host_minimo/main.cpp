// The smallest host: makes a customer's account in a SQLite file of its own, applies a payment and prints the balance.
#include <clocale>
#include <exception>
#include <iostream>
#include <memory>

#include "qvn/lumlibreria.h"

namespace {

// A host has its tables already; these are the columns that ActualizaSaldo reads and writes.
void createAccount(const qvn::data::ConnectionPtr& connection) {
  for (const char* sql : {
           "CREATE TABLE clients (cliente TEXT PRIMARY KEY, saldo DOUBLE)",
           "CREATE TABLE cobranza (cobranza INTEGER PRIMARY KEY, cliente TEXT, tip_cam DOUBLE, saldo DOUBLE, estado "
           "TEXT)",
           "CREATE TABLE cobdet (cobranza INTEGER, cargo_ab TEXT, importe DOUBLE)",
           "INSERT INTO clients VALUES ('C003', 0)",
           "INSERT INTO cobranza VALUES (1007, 'C003', 1, 0, 'P')",
           "INSERT INTO cobdet VALUES (1007, 'C', 5220.00)",
           "INSERT INTO cobdet VALUES (1007, 'A', 2000.00)",
       }) {
    connection->Execute(sql);
  }
}

void run() {
  const qvn::LumLibreria library;
  const auto connection = library.NewSQLite();
  connection->Open(connection->ConnectionString() + "Data Source=:memory:");
  createAccount(connection);

  const auto ambiente = std::make_shared<qvn::host::SimpleAmbiente>(connection);
  library.ActualizaSaldo(1007, ambiente);

  const auto rows = library.CreaRecordSet("SELECT saldo, estado FROM cobranza WHERE cobranza = 1007", connection);
  double balance = rows->Fields("saldo").Value().toDouble();
  std::cout << "Saldo: " << library.Formato(balance, "#,##0.00").toText() << " ("
            << rows->Fields("estado").Value().toText() << ")\n";
  std::string legend = "M.N.";
  std::cout << library.PonLetra(balance, legend, true, "PESOS") << "\n";
}

}  // namespace

int main() {
  std::setlocale(LC_ALL, "");
  try {
    run();
    return 0;
  } catch (const qvn::RuntimeError& error) {
    std::cerr << "host_minimo: error " << error.number() << ": " << error.what() << "\n";
  } catch (const std::exception& error) {
    std::cerr << "host_minimo: " << error.what() << "\n";
  }
  return 1;
}
