// qvn surtir: supplies a quantity of one line of a customer order.
#include <array>

#include "apps/qvn/commands.h"
#include "apps/qvn/connect.h"
#include "apps/qvn/order_line.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Surte CANTIDAD de una partida de un pedido de cliente con ActualizaPorSurtir:
suma la cantidad a lo surtido de la partida («pedpar», por id_salida), calcula
lo que le queda por surtir y escribe el estado del pedido en «pedidos»: CE
cerrado si ninguna partida tiene algo por surtir, SU surtido en parte, PE
pendiente. Muestra la partida, el estado del pedido y el artículo antes y
después.

Al contador por_surt del artículo en «prods» se le suma la misma CANTIDAD, con
el signo con que se escribe: surtir 3 lo sube en 3 y surtir -3 lo baja en 3. Con
--sin-articulos no cambia. Una cantidad negativa deshace lo surtido.

CANTIDAD lleva punto decimal y no lleva comas. No hay transacción: lo que se
escribió antes de una falla queda escrito.
)";

constexpr std::string_view kExamples = R"(
  qvn surtir --sin-articulos 73 2 \
          -c 'Provider=SQLite;Data Source=demo-qvn/tienda.db'
      en la tienda que deja «qvn demo»
  qvn surtir --traza 73 -0.5
      en la base de QVN_CONEXION, con las sentencias que ejecuta
)";

constexpr auto kOptions = std::to_array<Option>({kConnectionOption, kWithoutProductsOption, kTraceOption});
constexpr OrderKind kCustomerOrders{"pedpar", "id_salida", "pedidos",
                                    "pedido", "por_surt",  &LumLibreria::ActualizaPorSurtir};

ExitStatus runSurtir(const Arguments& arguments, Context& context) {
  return applyToLine(kCustomerOrders, arguments, context);
}

}  // namespace

constinit const Command kSurtirCommand{
    "surtir", "surte una partida de un pedido de cliente", "PARTIDA CANTIDAD", kDescription, kOptions, kExamples,
    runSurtir};

}  // namespace qvn::cli
