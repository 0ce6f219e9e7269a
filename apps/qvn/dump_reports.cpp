#include "apps/qvn/dump_reports.h"

#include <string>

#include "apps/qvn/table_writer.h"
#include "apps/qvn/terminal_text.h"
#include "apps/qvn/transfer_bar.h"
#include "qvn/mysqladmin/dump_verification.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kInterrupted = "qvn: se interrumpió a petición suya\n";

void tellSkipped(const mysqladmin::SkippedStep& skipped, Context& context) {
  const std::string where = skipped.table.empty() ? "" : "tabla «" + safeText(skipped.table) + "», ";
  if (skipped.number == error_number::kInvalidUseOfNull) {
    context.messages << "qvn: " << where << "columna «" << safeText(skipped.step)
                     << "»: en lugar de Null quedó el texto anterior, " << countText(skipped.times, context)
                     << " veces; --fiel conserva los Null\n";
    return;
  }
  context.messages << "qvn: " << where << safeText(skipped.step) << ": " << safeText(skipped.reason) << " (error "
                   << std::to_string(skipped.number) << ", " << countText(skipped.times, context) << " veces)\n";
}

std::string rowsText(const mysqladmin::TableContents& contents, Context& context) {
  return contents.rows < 0 ? "no está" : countText(contents.rows, context);
}

}  // namespace

std::string countText(std::int64_t number, Context& context) {
  return context.library.Formato(number, "#,##0").toText();
}

ExitStatus tellBackup(const mysqladmin::BackupReport& report, std::string_view path, Context& context) {
  for (const mysqladmin::SkippedStep& skipped : report.skipped) tellSkipped(skipped, context);
  if (report.wasInterrupted) context.messages << kInterrupted;
  context.out << "Respaldo «" << safeText(path) << "»: " << countText(report.tables, context) << " tablas, "
              << countText(report.rows, context) << " renglones, " << countText(report.bytes, context) << " bytes\n";
  if (report.isComplete()) return ExitStatus::Done;
  context.messages << "qvn: el respaldo no está completo; corrija lo anterior y repítalo\n";
  return ExitStatus::Failed;
}

ExitStatus tellRestore(const mysqladmin::RestoreReport& report, Context& context) {
  if (report.wasInterrupted) context.messages << kInterrupted;
  if (report.failure) {
    const mysqladmin::RestoreFailure& failure = *report.failure;
    const std::string line = failure.line == 0 ? "" : "línea " + countText(failure.line, context) + ": ";
    context.messages << "qvn: " << line << safeText(failure.reason) << " (error " << std::to_string(failure.number)
                     << ")\n";
    if (!failure.statement.empty()) context.messages << "     sentencia: " << safeText(failure.statement) << "\n";
  }
  if (!report.unfinished.empty()) {
    context.messages << "qvn: la última sentencia no termina con «;» y no se ejecutó; el archivo puede estar cortado\n"
                     << "     sentencia: " << safeText(report.unfinished) << "\n";
  }
  context.out << countText(report.statements, context) << " sentencias ejecutadas, " << countText(report.bytes, context)
              << " bytes\n";
  if (report.isComplete()) return ExitStatus::Done;
  context.messages << "qvn: la restauración no terminó; lo que ya se ejecutó queda\n";
  return ExitStatus::Failed;
}

ExitStatus verifyAndTell(std::string_view path, const data::ConnectionPtr& connection, bool isBarWanted,
                         Context& context) {
  TransferBar bar(context.messages, isBarWanted);
  const mysqladmin::VerificationReport report = mysqladmin::verifyDump(path, connection, bar.observer());
  bar.clear();
  if (!report.restore.isComplete()) return tellRestore(report.restore, context);
  TableWriter table(context.out, {"tabla", "renglones", "en el respaldo", "suma"});
  for (const mysqladmin::TableComparison& compared : report.tables) {
    table.add({textCell(safeText(compared.table)), numberCell(rowsText(compared.original, context)),
               numberCell(rowsText(compared.restored, context)),
               textCell(compared.original == compared.restored ? "igual" : "DISTINTA")});
  }
  table.end();
  if (report.matches()) return ExitStatus::Done;
  context.messages << "qvn: el respaldo no es igual a la base; si alguien la cambió entretanto, repítalo\n";
  return ExitStatus::Failed;
}

}  // namespace qvn::cli
