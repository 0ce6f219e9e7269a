#include "bench/sales/station.h"

#include <algorithm>
#include <functional>
#include <thread>

#include "bench/sales/sale.h"
#include "bench/sales/shop_tables.h"
#include "qvn/base/random.h"
#include "qvn/core/consecutive.h"
#include "qvn/host/ambiente.h"
#include "qvn/host/unit_of_work.h"
#include "qvn/ledger/orders.h"
#include "qvn/ledger/receivables.h"

namespace qvn::sales {
namespace {

using std::chrono::steady_clock;

constexpr std::chrono::milliseconds kPauseAfterError{50};

std::string amountText(std::int64_t cents) {
  const std::string digits = std::to_string(cents % 100);
  return std::to_string(cents / 100) + (digits.size() == 1 ? ".0" : ".") + digits;
}

class Station {
 public:
  Station(const StationOptions& options, std::ostream& log)
      : options_(options), log_(log), random_(pseudoRandom(options.seed)) {
    connection_->setCommandTimeout(options.commandTimeout);
    environment_->setConexion(connection_);
  }

  void run() {
    const auto end = steady_clock::now() + options_.duration;
    while (!connect() && steady_clock::now() < end) continue;
    while (steady_clock::now() < end) sell();
  }

 private:
  void write(const Entry& entry) { log_ << toLine(entry) << std::endl; }
  void writeError(const RuntimeError& error) {
    write({.told = Told::Error, .description = error.description()});
    std::this_thread::sleep_for(kPauseAfterError);
  }

  bool connect() {
    try {
      connection_->Open(options_.connectionString);
      size_ = shopSize(*connection_);
      return true;
    } catch (const RuntimeError& error) {
      writeError(error);
      connection_->Close();
      return false;
    }
  }

  std::int32_t below(std::int32_t limit) { return static_cast<std::int32_t>(random_->next() * limit); }

  std::int32_t draw(const std::string& counter) {
    const std::int32_t number = core::TraeSiguienteSeguro(counter, connection_);
    write({.told = Told::Drawn, .counter = counter, .number = number});
    return number;
  }

  void sell() {
    const auto start = steady_clock::now();
    Entry entry;
    Sale& sale = entry.sale;
    try {
      sale.document = draw("cobranza");
      sale.payment = draw("caja");
    } catch (const RuntimeError& error) {
      writeError(error);
      return;
    }
    choose(sale);
    try {
      host::UnitOfWork(*connection_).run([&] { store(sale); });
      entry.told = Told::Stored;
      const auto time = steady_clock::now() - start;
      entry.microseconds = std::chrono::duration_cast<std::chrono::microseconds>(time).count();
    } catch (const host::UnknownOutcome& error) {
      entry.told = Told::Unknown;
      entry.description = error.description();
    } catch (const RuntimeError& error) {
      entry.told = Told::Refused;
      entry.description = error.description();
    }
    write(entry);
    if (entry.told != Told::Stored) std::this_thread::sleep_for(kPauseAfterError);
  }

  void choose(Sale& sale) {
    sale.customer = 1 + below(size_.customers);
    sale.line = 1 + below(size_.orders * kLinesPerOrder);
    sale.quantity = 1 + below(9);
    sale.firstCharge = 1 + below(100'000);
    sale.secondCharge = 1 + below(100'000);
    const std::int64_t total = sale.firstCharge + sale.secondCharge;
    // One in four documents is paid in full, one in eight payments is more than the document takes.
    sale.applied = below(4) == 0 ? total : 1 + below(static_cast<std::int32_t>(total));
    sale.received = sale.applied + (below(8) == 0 ? 500 : 0);
  }

  // The rows of the customer and of the order come first: the sums that the ledger makes must not miss what another
  // station is just about to add.
  void store(const Sale& sale) {
    const std::string customer = customerCode(sale.customer);
    const std::string document = std::to_string(sale.document);
    const std::string payment = std::to_string(sale.payment);
    const std::int32_t order = orderOfLine(sale.line);
    const std::string product = productCode(productOfLine(sale.line, size_));
    connection_->Execute("SELECT cliente FROM clients WHERE cliente = '" + customer + "' FOR UPDATE")->Close();
    connection_->Execute("SELECT pedido FROM pedidos WHERE pedido = " + std::to_string(order) + " FOR UPDATE")->Close();
    connection_->Execute("INSERT INTO cobranza VALUES (" + document + ", '" + customer + "', 0, 1, 'P')");
    connection_->Execute("INSERT INTO cobdet (cobranza, cargo_ab, importe) VALUES (" + document + ", 'C', " +
                         amountText(sale.firstCharge) + "), (" + document + ", 'C', " + amountText(sale.secondCharge) +
                         ")");
    connection_->Execute("INSERT INTO caja VALUES (" + payment + ", " + amountText(sale.received) + ", 0, 0)");
    connection_->Execute("INSERT INTO cobdet (cobranza, cargo_ab, importe, abono) VALUES (" + document + ", 'A', " +
                         amountText(sale.applied) + ", " + payment + ")");
    host::QueryPtr query;
    ledger::ActualizaPorAplicar(sale.payment, environment_, query);
    ledger::ActualizaSaldo(sale.document, environment_, query);
    ledger::ActualizaPorSurtirEnPedido(product, sale.line, sale.quantity, order, environment_, true, query);
    connection_->Execute("UPDATE prods SET existencia = existencia - " + std::to_string(sale.quantity) +
                         " WHERE articulo = '" + product + "'");
  }

  const StationOptions& options_;
  std::ostream& log_;
  RandomPtr random_;
  data::ConnectionPtr connection_ = data::Connection::create();
  std::shared_ptr<host::SimpleAmbiente> environment_ = std::make_shared<host::SimpleAmbiente>(connection_);
  ShopSize size_;
};

}  // namespace

void runStation(const StationOptions& options, std::ostream& log) { Station(options, log).run(); }

}  // namespace qvn::sales
