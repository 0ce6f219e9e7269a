// Statements that a host runs later, and how it is told of those that fail.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "qvn/base/variant.h"
#include "qvn/host/collection.h"

namespace qvn::host {

/// A statement that waits to be run, with a label for people.
class PendingStatement final : public Object {
 public:
  PendingStatement(std::string query, std::string queryName)
      : Query(std::move(query)), QueryName(std::move(queryName)) {}
  std::string Query;
  std::string QueryName;
};

/// Implemented by hosts that hand statements to flushQueryCollection.
class PendingStatementsHost {
 public:
  virtual ~PendingStatementsHost() = default;
  virtual void beginFlush() = 0;
  /// The statements to run: a collection of PendingStatement objects. Asked for at each item.
  [[nodiscard]] virtual std::shared_ptr<Collection> pendingStatements() = 0;
  /// `failure` is what the runner says to whether it failed.
  virtual void reportFailure(std::string_view queryName, std::string_view query, const Variant& failure,
                             std::string_view errorText) = 0;
  virtual void endFlush() = 0;
};

}  // namespace qvn::host
