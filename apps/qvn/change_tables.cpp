#include "apps/qvn/change_tables.h"

#include "apps/qvn/field_text.h"

namespace qvn::cli {
namespace {

using ledger::LedgerSide;
using ledger::RecalculationStage;

std::vector<std::string> titles(LedgerSide side, RecalculationStage stage) {
  const bool isCustomers = side == LedgerSide::Customers;
  if (stage == RecalculationStage::Totals) return {isCustomers ? "cliente" : "proveedor", "saldo antes", "saldo"};
  return {isCustomers ? "cobranza" : "cuenxpag", "saldo antes", "saldo", "estado antes", "estado"};
}

Cell stateCell(const Variant& state) { return state.isNull() ? nullCell() : textCell(safeText(state.toText())); }

}  // namespace

void ChangeTables::add(const ledger::BalanceChange& change) {
  if (!table_ || change.side != side_ || change.stage != stage_) {
    end();
    side_ = change.side;
    stage_ = change.stage;
    table_.emplace(out_, titles(side_, stage_));
  }
  const std::string key = safeText(change.key);
  if (change.stage == RecalculationStage::Totals) {
    table_->add({textCell(key), amountCell(change.balanceBefore), amountCell(change.balance)});
  } else {
    table_->add({numberCell(key), amountCell(change.balanceBefore), amountCell(change.balance),
                 stateCell(change.stateBefore), textCell(change.state)});
  }
}

void ChangeTables::end() {
  if (!table_) return;
  table_->end();
  table_.reset();
  out_ << "\n";
}

}  // namespace qvn::cli
