#include "apps/qvn/recalculation_run.h"

#include <string>
#include <utility>

#include "apps/qvn/change_tables.h"
#include "apps/qvn/interruption.h"
#include "apps/qvn/progress_bar.h"
#include "apps/qvn/terminal_text.h"

namespace qvn::cli {
namespace {

using ledger::LedgerSide;
using ledger::RecalculationProgress;
using ledger::RecalculationResult;
using ledger::RecalculationStage;

std::string sideName(LedgerSide side) { return side == LedgerSide::Customers ? "clientes" : "proveedores"; }

std::string stageName(const RecalculationProgress& at) {
  return (at.stage == RecalculationStage::Documents ? "documentos de " : "totales de ") + sideName(at.side);
}

void requireTables(const std::vector<LedgerSide>& sides, const data::ConnectionPtr& connection, Context& context) {
  for (const LedgerSide side : sides) {
    try {
      ledger::requireLedger(side, connection);
    } catch (const data::ProviderError& error) {
      if (error.number() == data::provider_number::kNoSuchTable) {
        const LedgerSide other = side == LedgerSide::Customers ? LedgerSide::Suppliers : LedgerSide::Customers;
        context.messages << "qvn: faltan tablas de " << sideName(side) << "; no se cambió nada. Con --"
                         << sideName(other) << " no hacen falta\n";
      }
      throw;
    }
  }
}

class RecalculationRun {
 public:
  RecalculationRun(const RecalculationWishes& wishes, const data::ConnectionPtr& connection, Context& context)
      : wishes_(wishes),
        connection_(connection),
        context_(context),
        bar_(context.messages, !wishes.hasDetail && !wishes.hasTrace),
        changes_(context.out) {}

  // Stops at the first side that is not completed.
  ExitStatus run(const std::vector<LedgerSide>& sides) {
    std::vector<std::pair<LedgerSide, RecalculationResult>> results;
    for (const LedgerSide side : sides) {
      results.emplace_back(side, recalculateSide(side));
      if (!results.back().second.isComplete) break;
    }
    showSummary(results);
    if (!results.back().second.isComplete) tellInterruption();
    const bool isGood = results.back().second.isComplete && failures_ == 0;
    return isGood ? ExitStatus::Done : ExitStatus::Failed;
  }

 private:
  RecalculationResult recalculateSide(LedgerSide side) {
    ledger::RecalculationOptions options{.isSimulated = wishes_.isSimulated};
    options.progress = [this](const RecalculationProgress& at) {
      at_ = at;
      bar_.show(stageName(at), at.done, at.total);
      return !Interruption::isRequested();
    };
    if (wishes_.hasDetail) options.changed = [this](const ledger::BalanceChange& change) { changes_.add(change); };
    options.failed = [this, side](const Variant& code) { tellFailure(side, code); };
    try {
      const RecalculationResult result = ledger::recalculate(side, connection_, options);
      changes_.end();
      bar_.clear();
      return result;
    } catch (const RuntimeError&) {
      changes_.end();
      bar_.clear();
      context_.messages << "qvn: falló después de " << reached() << "; " << whatStays() << "\n";
      throw;
    }
  }

  void tellFailure(LedgerSide side, const Variant& code) {
    ++failures_;
    bar_.clear();
    const std::string_view owner = side == LedgerSide::Customers ? "cliente" : "proveedor";
    if (code.isNull()) {
      context_.messages << "qvn: hay documentos sin " << owner << "; su saldo no está en ningún total\n";
    } else {
      context_.messages << "qvn: no se pudo con el " << owner << " «" << safeText(code.toText())
                        << "»: ninguno de sus documentos tiene saldo y tipo de cambio (tip_cam)\n";
    }
  }

  void tellInterruption() {
    context_.messages << "qvn: se interrumpió después de " << reached() << "; " << whatStays() << "\n";
  }

  [[nodiscard]] std::string reached() const {
    return count(at_.done) + " de " + count(at_.total) + " " + stageName(at_);
  }

  [[nodiscard]] std::string_view whatStays() const {
    return wishes_.isSimulated ? "la simulación no escribió nada"
                               : "lo escrito queda; repita el comando y sigue con lo demás";
  }

  [[nodiscard]] std::string count(std::int64_t number) const {
    return context_.library.Formato(number, "#,##0").toText();
  }

  [[nodiscard]] Cell totalCell(const RecalculationResult& result, std::int64_t number) const {
    return numberCell(result.hasTotals ? count(number) : "-");
  }

  void showSummary(const std::vector<std::pair<LedgerSide, RecalculationResult>>& results) {
    const std::string changed = wishes_.isSimulated ? "cambiarían" : "cambiados";
    TableWriter table(context_.out, {"cuentas", "documentos", changed, "totales", changed, "no se pudo"});
    for (const auto& [side, result] : results) {
      table.add({textCell(sideName(side)), numberCell(count(result.documents.read)),
                 numberCell(count(result.documents.changed)), totalCell(result, result.totals.read),
                 totalCell(result, result.totals.changed), totalCell(result, result.failed)});
    }
    table.end();
    if (wishes_.isSimulated) context_.out << "Simulación: no se escribió nada.\n";
  }

  RecalculationWishes wishes_;
  const data::ConnectionPtr& connection_;
  Context& context_;
  ProgressBar bar_;
  ChangeTables changes_;
  RecalculationProgress at_{};
  int failures_ = 0;
};

}  // namespace

ExitStatus recalculateSides(const std::vector<LedgerSide>& sides, const RecalculationWishes& wishes,
                            const data::ConnectionPtr& connection, Context& context) {
  requireTables(sides, connection, context);
  const Interruption interruption;
  return RecalculationRun(wishes, connection, context).run(sides);
}

}  // namespace qvn::cli
