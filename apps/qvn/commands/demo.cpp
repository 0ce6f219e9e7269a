// qvn demo: a small shop, and what the library does in it.
#include <array>
#include <string>

#include "apps/qvn/commands.h"
#include "apps/qvn/connect.h"
#include "apps/qvn/demo/order_story.h"
#include "apps/qvn/demo/payables_story.h"
#include "apps/qvn/demo/payment_story.h"
#include "apps/qvn/demo/shop_database.h"
#include "apps/qvn/demo/shop_file.h"
#include "apps/qvn/demo/stock_data.h"
#include "apps/qvn/demo/stock_story.h"
#include "apps/qvn/terminal_text.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Crea la base de datos de una tienda pequeña (clientes, documentos por cobrar en
dos monedas, pagos, artículos, pedidos, órdenes de compra, lotes y documentos
por pagar) y llama a la biblioteca como lo hacen sus pantallas. Muestra antes y
después:
  - el pago de un cliente: ActualizaPorAplicar y ActualizaSaldo
  - un pedido que se surte en dos pasos: ActualizaPorSurtir
  - una orden de compra que se recibe: ActualizaPorRecibir
  - los lotes a los que vuelve una salida: RegresaLotes
  - un cambio de precios: SalvaHistCamb
  - el pago a un proveedor: ActualizaPorAplicarEnPagos y ActualizaSaldoPagos

La tienda queda en el archivo tienda.db (SQLite) de la carpeta demo-qvn, o en la
base de datos que se dé con --conexion; QVN_CONEXION no cuenta aquí. Las tablas
son clients, cobranza, cobdet, caja, prods, pedidos, pedpar, orden, ordpar,
lotes, slotes, histcamb, consec, proveed, cuenxpag, cuenxpdet, pagos y la marca
qvn_demo. Otra ejecución las hace de nuevo. Donde haya tablas con esos nombres
que no hizo la demostración, no cambia nada y termina con estado 1.
)";

constexpr std::string_view kExamples = R"(
  qvn demo
      en ./demo-qvn/tienda.db
  qvn demo --traza -c 'MySQL;SERVER=localhost;DATABASE=pruebas;UID=pos;PWD=...'
      en una base de datos de MySQL o MariaDB, con las sentencias que ejecuta
)";

constexpr Option kFolderOption{"carpeta", 0, "CARPETA", "carpeta del archivo (./demo-qvn si falta)"};
constexpr Option kDatabaseOption{kConnectionOption.name, kConnectionOption.letter, kConnectionOption.valueName,
                                 "usa esta base de datos en vez del archivo"};
constexpr auto kOptions = std::to_array<Option>({kFolderOption, kDatabaseOption, kTraceOption});

// For the person to paste into a shell; a plain word stays as it is.
std::string shellQuoted(std::string_view word) {
  constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_./+-";
  if (!word.empty() && word.find_first_not_of(kPlain) == std::string_view::npos) return std::string(word);
  std::string quoted = "'";
  for (const char c : word) {
    if (c == '\'') {
      quoted.append("'\\''");
    } else {
      quoted.push_back(c);
    }
  }
  return quoted + "'";
}

void announce(demo::Ownership ownership, std::string_view place, Context& context) {
  context.out << "Tienda de demostración: " << std::to_string(demo::kCustomers.size()) << " clientes, "
              << std::to_string(demo::kDocuments.size()) << " documentos, " << std::to_string(demo::kMovements.size())
              << " movimientos, " << std::to_string(demo::kPayments.size()) << " pagos,\n                         "
              << std::to_string(demo::kProducts.size()) << " artículos, " << std::to_string(demo::kOrders.size())
              << " pedidos y " << std::to_string(demo::kLots.size()) << " lotes\n"
              << "Base de datos: " << safeText(place) << "\n";
  if (ownership == demo::Ownership::Ours) {
    context.out << "Ya había una de una ejecución anterior; se hace de nuevo desde el principio.\n";
  }
}

void build(const data::ConnectionPtr& connection, demo::Ownership ownership, std::string_view place, Context& context) {
  if (ownership == demo::Ownership::Foreign) {
    throw RuntimeError(error_number::kFileExists, "La demostración no hizo lo que hay en " + std::string(place) +
                                                      " y no lo cambió; use otra base de datos u otra carpeta");
  }
  announce(ownership, place, context);
  // Where tables can be made within a transaction, the disk is waited for once instead of for each statement.
  connection->Execute("BEGIN");
  demo::buildShop(connection);
  demo::computeBalances(context.library, connection);
  connection->Execute("COMMIT");
}

void tellStories(const data::ConnectionPtr& connection, Context& context) {
  demo::tellPayment(connection, context);
  demo::tellSupply(connection, context);
  demo::tellReceipt(connection, context);
  demo::tellLotReturn(connection, context);
  demo::tellPriceChange(connection, context);
  demo::tellSupplierPayment(connection, context);
}

void tellHowToGoOn(std::string_view environmentLine, Context& context) {
  const std::string program = shellQuoted(context.programName);
  context.out << "\nPara seguir mirando:\n" << environmentLine;
  context.out << "  " << program << " sql \"SELECT * FROM cobranza\"\n"
              << "  " << program << " sql \"SELECT * FROM cobdet WHERE abono = 506\"\n"
              << "  " << program << " saldo --traza 1007\n"
              << "  " << program << " surtir --sin-articulos 73 1\n"
              << "  " << program << " precios " << demo::kPriceChange.product << "\n";
}

void runInFile(const Arguments& arguments, Context& context) {
  const std::filesystem::path file = demo::prepareShopFile(arguments.value(kFolderOption.name).value_or("./demo-qvn"));
  const bool hasContent = std::filesystem::exists(file) && !std::filesystem::is_empty(file);
  const data::ConnectionPtr connection = connectTo(demo::connectionStringFor(file, true), arguments, context);
  demo::Ownership ownership = demo::findOwnership(connection);
  // A file that somebody filled with other tables is not ours either.
  if (hasContent && ownership == demo::Ownership::Vacant) ownership = demo::Ownership::Foreign;
  build(connection, ownership, file.string() + " (SQLite)", context);
  tellStories(connection, context);
  tellHowToGoOn("  export QVN_CONEXION=" + shellQuoted(demo::connectionStringFor(file, false)) + "\n", context);
}

void runOnDatabase(std::string_view connectionString, const Arguments& arguments, Context& context) {
  const data::ConnectionPtr connection = connectTo(std::string(connectionString), arguments, context);
  build(connection, demo::findOwnership(connection), readableConnection(connectionString), context);
  tellStories(connection, context);
  tellHowToGoOn("  export QVN_CONEXION='...'   # la misma cadena de conexión\n", context);
}

ExitStatus runDemo(const Arguments& arguments, Context& context) {
  if (!arguments.operands().empty()) throw UsageError("la demostración no lleva argumentos, sólo opciones");
  const auto connectionString = arguments.value(kDatabaseOption.name);
  if (connectionString && arguments.has(kFolderOption.name)) {
    throw UsageError("--carpeta y --conexion no van juntas: la tienda está en un archivo o en esa base de datos");
  }
  if (connectionString) {
    runOnDatabase(*connectionString, arguments, context);
  } else {
    runInFile(arguments, context);
  }
  return ExitStatus::Done;
}

}  // namespace

constinit const Command kDemoCommand{
    "demo", "crea una tienda de ejemplo y muestra la biblioteca en ella", "", kDescription, kOptions, kExamples,
    runDemo};

}  // namespace qvn::cli
