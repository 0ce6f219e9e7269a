// Transactions: one for each statement, or one that the host opens around several.
#pragma once

#include <chrono>

#include "qvn/data/drivers/firebird/firebird_link.h"

namespace qvn::data::firebird {

/// Rolled back at its end unless it was committed or left to its cursors.
class Transaction {
 public:
  /// Read committed. A wait for another session's lock ends after `lockTimeout`; zero waits for ever.
  Transaction(FirebirdLink& link, std::chrono::seconds lockTimeout);
  /// Takes over one that a statement's text opened.
  Transaction(FirebirdLink& link, TransactionHandle handle) : link_(link), handle_(std::move(handle)) {}
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  [[nodiscard]] Firebird::ITransaction* handle() const { return handle_.get(); }

  /// Throws ProviderError when the engine refuses; nothing is in force then.
  void commit();
  /// Puts in force what was written and goes on, so that cursors stay open.
  void commitRetaining();
  /// Takes back what was written and goes on.
  void rollbackRetaining();

  /// From now on the transaction is kept by its cursors alone, and committed with the last of them.
  void leaveToCursors() { isLeftToCursors_ = true; }
  /// Lets it be rolled back at its end after all.
  void abandon() { isLeftToCursors_ = false; }
  [[nodiscard]] bool isLeftToCursors() const { return isLeftToCursors_; }

 private:
  FirebirdLink& link_;
  TransactionHandle handle_;
  bool isLeftToCursors_ = false;
};

}  // namespace qvn::data::firebird
