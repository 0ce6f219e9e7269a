// qvn repara: a MySQL table whose index is damaged.
#include <array>

#include "apps/qvn/commands.h"
#include "apps/qvn/secret_connection.h"
#include "apps/qvn/terminal_text.h"
#include "qvn/dialogs/default_dialogs.h"
#include "qvn/mysqladmin/table_repair.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Repara la tabla MyISAM que nombra ERROR, el texto con que MySQL avisó que su
índice (.MYI) está dañado, y anota la reparación en la tabla «reparando». Si
«reparando» dice que otra estación ya la repara, no hace nada y el estado es 1.
También es 1 cuando la tabla sigue mal y hay que repararla con myisamchk.
)";

constexpr std::string_view kExamples = R"(
  qvn repara "Index for table './shop/clients.MYI' is corrupt"
      en la base de QVN_CONEXION
)";

constexpr auto kOptions =
    std::to_array<Option>({kConnectionOption, kPasswordFileOption, kAskPasswordOption, kTraceOption});

ExitStatus runRepara(const Arguments& arguments, Context& context) {
  if (arguments.operands().size() != 1) throw UsageError("se espera el texto del error, entre comillas");
  const std::string text(arguments.operands().front());
  const std::string table = mysqladmin::damagedTable(text);
  if (table.empty()) throw UsageError("el texto no nombra un índice, como './tienda/clients.MYI'");
  const data::ConnectionPtr connection = connectSecretly(arguments, context);
  switch (mysqladmin::ReparaTabla(text, connection, *dialogs::defaultDialogs(), *systemClock())) {
    case mysqladmin::RepairOutcome::Repaired:
      context.out << "Se reparó la tabla «" << safeText(table) << "»\n";
      return ExitStatus::Done;
    case mysqladmin::RepairOutcome::UnderWay:
      context.messages << "qvn: otra estación ya repara la tabla «" << safeText(table)
                       << "»; si ninguna lo hace, ponga en 0 su campo reparando\n";
      return ExitStatus::Failed;
    case mysqladmin::RepairOutcome::NeedsOfflineTool:
      break;
  }
  return ExitStatus::Failed;
}

}  // namespace

constinit const Command kReparaCommand{
    "repara", "repara una tabla MySQL con el índice dañado", "ERROR", kDescription, kOptions, kExamples, runRepara};

}  // namespace qvn::cli
