// Whole sales by many stations, and the account that checks them; scripts/sales starts the stations.
//
//   sales_load prepare CUSTOMERS      makes the shop anew
//   sales_load station LOG SECONDS SEED TIMEOUT     TIMEOUT: seconds for a statement
//   sales_load check SECONDS LOG...   compares, and prints what was sold and how fast
//
// The environment variable QVN_SALES holds the connection string.
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <span>
#include <stdexcept>

#include "bench/sales/books.h"
#include "bench/sales/shop_tables.h"
#include "bench/sales/station.h"
#include "qvn/data/driver_registry.h"
#include "qvn/data/drivers/mysql/mysql_driver.h"

namespace {

using namespace qvn::sales;  // NOLINT(google-build-using-namespace): this program is its front

constexpr std::size_t kShownDifferences = 20;
constexpr std::chrono::seconds kCheckTimeout{60};

std::string connectionString() {
  const char* const text = std::getenv("QVN_SALES");
  if (text == nullptr) throw std::invalid_argument("falta la variable de entorno QVN_SALES");
  return text;
}

qvn::data::ConnectionPtr connect() {
  auto connection = qvn::data::Connection::create();
  connection->setCommandTimeout(kCheckTimeout);
  connection->Open(connectionString());
  return connection;
}

int prepare(const std::string& customers) {
  ShopSize size;
  size.customers = std::stoi(customers);
  createShop(*connect(), size);
  return 0;
}

int sell(const std::string& log, const std::string& seconds, const std::string& seed, const std::string& timeout) {
  std::ofstream file(log);
  StationOptions options;
  options.connectionString = connectionString();
  options.duration = std::chrono::seconds(std::stoi(seconds));
  options.seed = std::stoull(seed);
  options.commandTimeout = std::chrono::seconds(std::stoi(timeout));
  runStation(options, file);
  return 0;
}

double milliseconds(const std::vector<std::int64_t>& sorted, double part) {
  const auto at = static_cast<std::size_t>(part * static_cast<double>(sorted.size() - 1));
  return static_cast<double>(sorted[at]) / 1000;
}

void printFigures(const Books& books, double seconds) {
  std::vector<std::int64_t> times = books.times();
  std::ranges::sort(times);
  std::cout << std::fixed << std::setprecision(1) << "ventas: " << books.stored() << " ("
            << static_cast<double>(books.stored()) / seconds << "/s), mediana " << milliseconds(times, 0.5)
            << " ms, percentil 99 " << milliseconds(times, 0.99) << " ms, la más lenta " << milliseconds(times, 1)
            << " ms\nsin respuesta: " << books.unknown() << ", rechazadas: " << books.refused()
            << ", errores al tomar número o conectar: " << books.errors() << '\n';
}

int check(const std::string& seconds, std::span<char*> logs) {
  Books books;
  for (const char* const log : logs) {
    std::ifstream file(log);
    if (!file) throw std::invalid_argument(std::string("no se pudo leer ") + log);
    books.read(file);
  }
  // Nothing sold is nothing shown.
  if (books.stored() == 0) throw std::invalid_argument("ninguna estación vendió nada");
  printFigures(books, std::stod(seconds));
  const std::vector<std::string> differences = books.differences(*connect());
  for (std::size_t i = 0; i < std::min(differences.size(), kShownDifferences); ++i) std::cout << differences[i] << '\n';
  std::cout << "diferencias: " << differences.size() << '\n';
  return differences.empty() ? 0 : 1;
}

int run(std::span<char*> arguments) {
  const std::string command = arguments.size() > 1 ? arguments[1] : "";
  if (command == "prepare" && arguments.size() == 3) return prepare(arguments[2]);
  if (command == "station" && arguments.size() == 6)
    return sell(arguments[2], arguments[3], arguments[4], arguments[5]);
  if (command == "check" && arguments.size() > 3) return check(arguments[2], arguments.subspan(3));
  std::cerr
      << "Uso: sales_load prepare CLIENTES | station BITÁCORA SEGUNDOS SEMILLA ESPERA | check SEGUNDOS BITÁCORA...\n";
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    qvn::data::registerDriver(qvn::data::mysqlDriver());
    return run({argv, static_cast<std::size_t>(argc)});
  } catch (const qvn::RuntimeError& error) {
    std::cerr << "sales_load: " << error.description() << '\n';
  } catch (const std::exception& error) {
    std::cerr << "sales_load: " << error.what() << '\n';
  }
  return 1;
}
