// qvn consecutivo: draws the next number of a counter.
#include <array>
#include <string>

#include "apps/qvn/commands.h"
#include "apps/qvn/connect.h"
#include "apps/qvn/key_operands.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Toma el número que sigue del consecutivo NOMBRE en «consec» con TraeSiguiente,
lo guarda y lo escribe solo en una línea. Un consecutivo que no existe empieza
en 1.

Con --ver escribe el número que daría la siguiente toma, sin tomarlo
(TraePosibleSiguiente): otra estación puede tomarlo antes.

Sin --seguro, dos estaciones que toman al mismo tiempo pueden recibir el mismo
número. Con --seguro (TraeSiguienteSeguro) nunca lo reciben, siempre que todas
tomen así. Además, si la cadena de conexión empieza con «MySQL», la toma
sencilla deja a su sesión el bloqueo LOCK TABLES consec WRITE: hasta que esa
sesión termine, recibe un error en cualquier otra tabla y las demás estaciones
esperan para usar «consec». Este comando termina en seguida su sesión; un
programa que llama a TraeSiguiente conserva la suya. La toma segura no deja
bloqueo alguno.
)";

constexpr std::string_view kExamples = R"(
  qvn consecutivo --seguro VENTAS
      toma un número de la base de QVN_CONEXION
  qvn consecutivo VENTAS --ver \
          -c 'Provider=SQLite;Data Source=demo-qvn/tienda.db'
      el que sigue en la tienda que deja «qvn demo»
  folio=$(qvn consecutivo --seguro VENTAS) || exit
      en un guion del intérprete de comandos
)";

constexpr Option kLookOption{"ver", 0, "", "dice el número que sigue, sin tomarlo"};
constexpr Option kSafeOption{"seguro", 0, "", "ninguna otra estación recibe el mismo número"};
constexpr auto kOptions = std::to_array<Option>({kConnectionOption, kLookOption, kSafeOption, kTraceOption});

std::int32_t draw(const Arguments& arguments, const std::string& counter, const data::ConnectionPtr& connection,
                  const LumLibreria& library) {
  if (arguments.has(kLookOption.name)) return library.TraePosibleSiguiente(counter, connection);
  if (arguments.has(kSafeOption.name)) return library.TraeSiguienteSeguro(counter, connection);
  host::QueryPtr query;
  return library.TraeSiguiente(counter, connection, {}, query);
}

ExitStatus runConsecutivo(const Arguments& arguments, Context& context) {
  if (arguments.operands().size() != 1) throw UsageError("se espera el nombre de un consecutivo");
  if (arguments.has(kLookOption.name) && arguments.has(kSafeOption.name)) {
    throw UsageError("--ver y --seguro no van juntas: una no toma el número y la otra sí");
  }
  const std::string counter = codeOperand(arguments.operands().front(), "el nombre de un consecutivo");
  const data::ConnectionPtr connection = connect(arguments, context);
  context.out << std::to_string(draw(arguments, counter, connection, context.library)) << "\n";
  return ExitStatus::Done;
}

}  // namespace

constinit const Command kConsecutivoCommand{
    "consecutivo", "toma el número que sigue de un consecutivo", "NOMBRE", kDescription, kOptions, kExamples,
    runConsecutivo};

}  // namespace qvn::cli
