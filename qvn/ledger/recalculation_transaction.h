// A transaction around the statements of one batch, on any engine.
#pragma once

#include "qvn/data/connection.h"
#include "qvn/data/engine_family.h"

namespace qvn::ledger {

class BatchTransaction {
 public:
  /// Opens it, ready to write. Throws ProviderError, also when the connection is within one already.
  BatchTransaction(data::Connection& connection, data::EngineFamily family);
  /// Takes back what was not committed; a failure of that is not told.
  ~BatchTransaction();
  BatchTransaction(const BatchTransaction&) = delete;
  BatchTransaction& operator=(const BatchTransaction&) = delete;

  void commit();

 private:
  data::Connection& connection_;
  bool isOpen_ = true;
};

}  // namespace qvn::ledger
