// A transaction around several statements, on any engine.
//
//   Transaction transaction(*connection);
//   connection->Execute("UPDATE caja SET aplicado = 1 WHERE abono = 7");
//   transaction.commit();
#pragma once

#include <string_view>

#include "qvn/data/connection.h"

namespace qvn::data {

class Transaction {
 public:
  /// Opens it, ready to write. Throws ProviderError, on most engines also when the connection is within one already;
  /// MySQL commits that one.
  explicit Transaction(Connection& connection);
  /// Opens it by a statement of the caller's own.
  Transaction(Connection& connection, std::string_view opening);
  /// Takes back what was not committed; a failure of that is not told.
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void commit();

  /// Takes it back. Throws ProviderError, and is not tried again then.
  void rollBack();

 private:
  Connection& connection_;
  bool isOpen_ = true;
};

}  // namespace qvn::data
