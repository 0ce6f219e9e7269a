// qvn restaura: a MySQL database from a file.
#include <array>

#include "apps/qvn/commands.h"
#include "apps/qvn/dump_reports.h"
#include "apps/qvn/interruption.h"
#include "apps/qvn/secret_connection.h"
#include "apps/qvn/terminal_text.h"
#include "apps/qvn/transfer_bar.h"
#include "qvn/mysqladmin/dump_file.h"
#include "qvn/mysqladmin/dump_formats.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Ejecuta las sentencias del respaldo ARCHIVO en el servidor MySQL de la conexión.
La base que el respaldo nombra se borra y se crea de nuevo; con --fiel --aqui
esas sentencias se saltan y las tablas quedan en la base de la conexión. Se
detiene en el primer error, dice su línea y el estado es 1; lo ejecutado queda.

Sin --fiel lee el archivo por líneas, como los respaldos de siempre. Con --fiel
lo lee por la gramática de SQL: los respaldos fieles y los de otros programas
(mysqldump, mariadb-dump), y parte los INSERT más largos de lo que el servidor
acepta. Los archivos que terminan en .gz o .zst se expanden.

--verifica no cambia la base de la conexión: restaura en una provisional del
mismo servidor y compara cada tabla. --simula dice las sentencias, sin conexión.
)";

constexpr std::string_view kExamples = R"(
  qvn restaura --fiel tienda.sql.zst
      en el servidor de QVN_CONEXION
  qvn restaura --verifica tienda.sql.zst
  qvn restaura --simula tienda.sql
)";

constexpr Option kFaithfulOption{"fiel", 0, "", "lee por la gramática de SQL"};
constexpr Option kHereOption{"aqui", 0, "", "en la base de la conexión; sólo con --fiel"};
constexpr Option kVerifyOption{"verifica", 0, "", "compara con la base sin cambiarla"};
constexpr Option kSimulateOption{"simula", 0, "", "no ejecuta nada; dice las sentencias"};
constexpr auto kOptions =
    std::to_array<Option>({kConnectionOption, kFaithfulOption, kHereOption, kVerifyOption, kSimulateOption,
                           kPasswordFileOption, kAskPasswordOption, kTraceOption});

constexpr std::size_t kShownColumns = 100;
constexpr std::size_t kSimulatedInsert = std::size_t{4} * 1024 * 1024;

ExitStatus listStatements(const std::string& path, bool isFaithful, Context& context) {
  const mysqladmin::DumpSourcePtr source = mysqladmin::expandedFor(path, mysqladmin::openDumpFile(path));
  const auto reader =
      isFaithful ? mysqladmin::readByGrammar(*source, kSimulatedInsert) : mysqladmin::readByLines(*source);
  std::int64_t statements = 0;
  for (std::string statement; reader->next(statement); ++statements) {
    context.out << countText(reader->line(), context) << ": "
                << safeText(std::string_view(statement).substr(0, 4 * kShownColumns), kShownColumns) << "\n";
  }
  context.out << "Simulación: " << countText(statements, context) << " sentencias; no se ejecutó ninguna.\n";
  mysqladmin::RestoreReport report;
  report.unfinished = reader->unfinished().substr(0, kShownColumns);
  return tellRestore(report, context);
}

ExitStatus runRestaura(const Arguments& arguments, Context& context) {
  const bool isFaithful = arguments.has(kFaithfulOption.name);
  if (arguments.operands().size() != 1) throw UsageError("se espera el nombre de un archivo");
  if (arguments.has(kHereOption.name) && !isFaithful) throw UsageError("--aqui sólo vale con --fiel");
  const std::string path(arguments.operands().front());
  if (arguments.has(kSimulateOption.name)) return listStatements(path, isFaithful, context);

  const data::ConnectionPtr connection = connectSecretly(arguments, context);
  const Interruption interruption;
  const bool isBarWanted = !arguments.has(kTraceOption.name);
  if (arguments.has(kVerifyOption.name)) return verifyAndTell(path, connection, isBarWanted, context);
  TransferBar bar(context.messages, isBarWanted);
  const mysqladmin::TransferOptions transfer{.observe = bar.observer(), .hasFormats = true};
  // A whole table may be one statement.
  connection->setCommandTimeout(std::chrono::seconds::zero());
  const mysqladmin::RestoreReport report =
      isFaithful ? mysqladmin::restoreByGrammar(
                       path, connection, {.transfer = transfer, .keepsDatabase = arguments.has(kHereOption.name)})
                 : mysqladmin::DatabaseRestore(path, connection, transfer);
  bar.clear();
  return tellRestore(report, context);
}

}  // namespace

constinit const Command kRestauraCommand{
    "restaura", "restaura una base de datos MySQL de un archivo", "ARCHIVO", kDescription, kOptions, kExamples,
    runRestaura};

}  // namespace qvn::cli
