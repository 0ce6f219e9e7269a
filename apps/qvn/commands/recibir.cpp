// qvn recibir: receives a quantity of one line of a purchase order.
#include <array>

#include "apps/qvn/commands.h"
#include "apps/qvn/connect.h"
#include "apps/qvn/order_line.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Recibe CANTIDAD de una partida de una orden de compra con ActualizaPorRecibir:
suma la cantidad a lo surtido de la partida («ordpar», por partida), calcula lo
que falta por surtir y escribe el estado de la orden en «orden»: CE cerrada si
ninguna partida tiene algo por surtir, SU surtida en parte, PE pendiente. En los
dos últimos casos escribe además el tipo OR. Muestra la partida, el estado de la
orden y el artículo antes y después.

Al contador por_recib del artículo en «prods» se le suma la misma CANTIDAD, con
el signo con que se escribe: recibir 3 lo sube en 3 y recibir -3 lo baja en 3.
Con --sin-articulos no cambia. Una cantidad negativa deshace lo recibido.

CANTIDAD lleva punto decimal y no lleva comas. No hay transacción: lo que se
escribió antes de una falla queda escrito.
)";

constexpr std::string_view kExamples = R"(
  qvn recibir --sin-articulos 84 -6 \
          -c 'Provider=SQLite;Data Source=demo-qvn/tienda.db'
      deshace parte de lo recibido en la tienda que deja «qvn demo»
  qvn recibir --traza 84 2.5
      en la base de QVN_CONEXION, con las sentencias que ejecuta
)";

constexpr auto kOptions = std::to_array<Option>({kConnectionOption, kWithoutProductsOption, kTraceOption});
constexpr OrderKind kPurchaseOrders{"ordpar", "partida",   "orden",
                                    "orden",  "por_recib", &LumLibreria::ActualizaPorRecibir};

ExitStatus runRecibir(const Arguments& arguments, Context& context) {
  return applyToLine(kPurchaseOrders, arguments, context);
}

}  // namespace

constinit const Command kRecibirCommand{
    "recibir", "recibe una partida de una orden de compra", "PARTIDA CANTIDAD", kDescription, kOptions, kExamples,
    runRecibir};

}  // namespace qvn::cli
