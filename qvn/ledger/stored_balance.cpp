#include "qvn/ledger/stored_balance.h"

#include "qvn/core/recordsets.h"

namespace qvn::ledger {

void addToStoredBalance(const std::string& sql, double amount, const data::ConnectionPtr& connection) {
  const auto rows = core::CreaRecordSet(sql, connection);
  data::Field& balance = rows->Fields("Saldo");
  balance.setValue(balance.Value() + amount);
}

}  // namespace qvn::ledger
