// qvn respalda: a MySQL database into a file.
#include <array>

#include "apps/qvn/commands.h"
#include "apps/qvn/dump_reports.h"
#include "apps/qvn/interruption.h"
#include "apps/qvn/secret_connection.h"
#include "apps/qvn/table_writer.h"
#include "apps/qvn/terminal_text.h"
#include "apps/qvn/transfer_bar.h"
#include "qvn/mysqladmin/database_backup.h"
#include "qvn/mysqladmin/faithful_backup.h"
#include "qvn/mysqladmin/schema.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Escribe la base de datos MySQL de la conexión en ARCHIVO, como sentencias que
la vuelven a crear. Sólo su dueño puede leer el archivo; si termina en .gz o
.zst queda comprimido.

Sin --fiel es el respaldo de siempre, que no conserva los valores nulos, los
saltos de línea ni los decimales más allá de dos, y que sigue cuando algo
falla: lo que no se pudo se dice al final y el estado es 1. Con --fiel la base
regresa exactamente como era, todo es del mismo momento, y un respaldo anterior
del mismo nombre queda como estaba mientras el nuevo no esté completo. Si hay
tablas que no son InnoDB, nadie puede escribir en la base mientras tanto.

--verifica lo restaura en una base provisional del servidor y compara cada
tabla. La contraseña se da en QVN_CLAVE, en QVN_CONEXION, en un archivo o a
mano, y nunca en -c.
)";

constexpr std::string_view kExamples = R"(
  qvn respalda --fiel --verifica tienda.sql.zst
      la base de QVN_CONEXION
  qvn respalda tienda.sql --pide-clave -c 'MySQL;SERVER=caja;DATABASE=tienda;
                                           UID=pos'
)";

constexpr Option kFaithfulOption{"fiel", 0, "", "conserva todo tal como es"};
constexpr Option kVerifyOption{"verifica", 0, "", "comprueba el respaldo; sólo con --fiel"};
constexpr Option kSimulateOption{"simula", 0, "", "no escribe nada; dice lo que respaldaría"};
constexpr auto kOptions = std::to_array<Option>({kConnectionOption, kFaithfulOption, kVerifyOption, kSimulateOption,
                                                 kPasswordFileOption, kAskPasswordOption, kTraceOption});

ExitStatus listTables(const data::ConnectionPtr& connection, Context& context) {
  TableWriter table(context.out, {"tabla", "motor", "renglones (aprox.)"});
  for (const mysqladmin::DatabaseTable& found : mysqladmin::readTables(connection)) {
    table.add({textCell(safeText(found.name)),
               textCell(found.kind == mysqladmin::TableKind::View ? "vista" : safeText(found.engine)),
               numberCell(countText(found.estimatedRows, context))});
  }
  table.end();
  context.out << "Simulación: no se escribió nada.\n";
  return ExitStatus::Done;
}

mysqladmin::BackupReport backUp(std::string_view path, bool isFaithful, const data::ConnectionPtr& connection,
                                const mysqladmin::TransferObserver& observe) {
  const ClockPtr clock = systemClock();
  if (isFaithful) return mysqladmin::backupFaithfully(path, connection, *clock, observe);
  return mysqladmin::DatabaseBackup(path, connection, *clock, {.observe = observe, .hasFormats = true});
}

ExitStatus runRespalda(const Arguments& arguments, Context& context) {
  const bool isFaithful = arguments.has(kFaithfulOption.name);
  if (arguments.operands().size() != 1) throw UsageError("se espera el nombre de un archivo");
  if (arguments.has(kVerifyOption.name) && !isFaithful) throw UsageError("--verifica sólo vale con --fiel");
  const std::string path(arguments.operands().front());
  const data::ConnectionPtr connection = connectSecretly(arguments, context);
  if (arguments.has(kSimulateOption.name)) return listTables(connection, context);

  const Interruption interruption;
  const bool isBarWanted = !arguments.has(kTraceOption.name);
  TransferBar bar(context.messages, isBarWanted);
  const mysqladmin::BackupReport report = backUp(path, isFaithful, connection, bar.observer());
  bar.clear();
  const ExitStatus status = tellBackup(report, path, context);
  if (status != ExitStatus::Done || !arguments.has(kVerifyOption.name)) return status;
  return verifyAndTell(path, connection, isBarWanted, context);
}

}  // namespace

constinit const Command kRespaldaCommand{
    "respalda", "respalda una base de datos MySQL en un archivo", "ARCHIVO", kDescription, kOptions, kExamples,
    runRespalda};

}  // namespace qvn::cli
