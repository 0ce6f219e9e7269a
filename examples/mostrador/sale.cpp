#include "sale.h"

#include <algorithm>
#include <chrono>
#include <numeric>

namespace mostrador {
namespace {

constexpr std::string_view kCustomer = "MOSTRADOR";

// Rolls back unless it was committed.
class Transaction {
 public:
  explicit Transaction(const qvn::data::ConnectionPtr& shop) : shop_(shop) { shop_->Execute("BEGIN IMMEDIATE"); }
  ~Transaction() {
    if (isDone_) return;
    try {
      shop_->Execute("ROLLBACK");
    } catch (const qvn::RuntimeError&) {
      // Closing the connection rolls back as well.
    }
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void commit() {
    shop_->Execute("COMMIT");
    isDone_ = true;
  }

 private:
  qvn::data::ConnectionPtr shop_;
  bool isDone_ = false;
};

qvn::Date today() {
  const auto now = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
  const std::chrono::year_month_day day(now);
  return qvn::Date::fromCivil(static_cast<int>(day.year()), static_cast<int>(static_cast<unsigned>(day.month())),
                              static_cast<int>(static_cast<unsigned>(day.day())));
}

struct Numbers {
  std::int32_t sale;
  std::int32_t payment;
};

void writeLines(const qvn::LumLibreria& library, const qvn::data::ConnectionPtr& shop, const Sale& sale,
                std::int32_t number) {
  for (const SaleLine& line : sale.lines()) {
    const std::string code = shop->Literal(line.product.code);
    const std::string quantity = library.FormatoDecimal(line.quantity);
    shop->Execute("INSERT INTO partvta (venta, articulo, cantidad, precio, almacen, estado) VALUES (" +
                  std::to_string(number) + ", " + code + ", " + quantity + ", " +
                  library.FormatoDecimal(toAmount(line.product.price)) + ", 1, 'CE')");
    shop->Execute("UPDATE prods SET existencia = existencia - " + quantity + " WHERE articulo = " + code);
  }
}

// A charge of the whole sale and a credit of what was paid of it.
void writeAccount(const qvn::LumLibreria& library, const qvn::host::AmbientePtr& station, const Numbers& numbers,
                  const Payment& payment, const std::string& date) {
  const qvn::data::ConnectionPtr shop = station->Conexion();
  const std::string document = std::to_string(numbers.sale);
  const std::string paymentNumber = std::to_string(numbers.payment);
  const std::string customer = shop->Literal(qvn::Variant(kCustomer));
  const std::string total = library.FormatoDecimal(toAmount(payment.total));
  const std::string paid = library.FormatoDecimal(toAmount(std::min(payment.total, payment.received)));
  shop->Execute("INSERT INTO cobranza VALUES (" + document + ", " + customer + ", " + date + ", 1, 0, 'P')");
  shop->Execute("INSERT INTO caja VALUES (" + paymentNumber + ", " + customer + ", " + date + ", " + paid + ", " +
                paid + ", 0)");
  shop->Execute("INSERT INTO cobdet (cobranza, cargo_ab, importe, abono) VALUES (" + document + ", 'C', " + total +
                ", NULL), (" + document + ", 'A', " + paid + ", " + paymentNumber + ")");
  library.ActualizaPorAplicar(numbers.payment, station);
  library.ActualizaSaldo(numbers.sale, station);
}

}  // namespace

Cents Sale::total() const {
  return std::accumulate(lines_.begin(), lines_.end(), Cents{0},
                         [](Cents sum, const SaleLine& line) { return sum + line.amount(); });
}

void Sale::add(const Product& product, double quantity) {
  const auto found = std::find_if(lines_.begin(), lines_.end(),
                                  [&](const SaleLine& line) { return line.product.code == product.code; });
  const double wanted = quantity + (found == lines_.end() ? 0 : found->quantity);
  if (!(quantity > 0)) throw qvn::RuntimeError(5, "La cantidad tiene que ser mayor que cero");
  if (wanted > product.stock) throw qvn::RuntimeError(5, "No hay existencia suficiente de " + product.name);
  if (found == lines_.end()) {
    lines_.push_back({product, quantity});
  } else {
    found->quantity = wanted;
  }
}

ClosedSale closeSale(const qvn::LumLibreria& library, const qvn::host::AmbientePtr& station, const Sale& sale,
                     Cents received) {
  if (sale.lines().empty()) throw qvn::RuntimeError(5, "La venta no tiene artículos");
  const qvn::data::ConnectionPtr shop = station->Conexion();
  const Payment payment{sale.total(), received};
  if (payment.received < payment.total) throw qvn::RuntimeError(5, "Lo recibido no alcanza para el total");
  const Numbers numbers{library.TraeSiguienteSeguro("VENTAS", shop), library.TraeSiguienteSeguro("ABONOS", shop)};
  const qvn::Date date = today();
  Transaction transaction(shop);
  writeLines(library, shop, sale, numbers.sale);
  writeAccount(library, station, numbers, payment, library.FechaSQL(date, shop));
  transaction.commit();
  return {numbers.sale, library.Formato(date, "dd/mm/yyyy").toText(), sale.lines(), payment};
}

}  // namespace mostrador
