// Statements that belong together, run again as a whole when another station stood in the way.
//
//   UnitOfWork unit(*connection);
//   unit.run([&] {
//     connection->Execute("INSERT INTO cobranza ...");
//     connection->Execute("INSERT INTO cobdet ...");
//   });
#pragma once

#include <chrono>
#include <functional>

#include "qvn/base/clock.h"
#include "qvn/base/random.h"
#include "qvn/data/connection.h"
#include "qvn/data/provider_error.h"

namespace qvn::host {

/// The answer to COMMIT was lost: what the unit wrote is stored as a whole or not at all, and only a look into the
/// database tells which. The items of errors() are those of the failure.
class UnknownOutcome : public data::ProviderError {
 public:
  explicit UnknownOutcome(const data::ProviderError& failure);
};

/// How often and how fast a unit is run again.
struct RetryPolicy {
  int attempts = 10;  ///< in all, at least 1
  /// Before the second attempt; twice as long before each further one. What is waited is a random part of it, from half
  /// to all, so that stations that met once do not meet again.
  std::chrono::milliseconds firstPause{10};
  std::chrono::milliseconds longestPause{1000};
};

class UnitOfWork {
 public:
  /// `connection` must outlive the object.
  explicit UnitOfWork(data::Connection& connection, RetryPolicy policy = {});
  UnitOfWork(data::Connection& connection, RetryPolicy policy, ClockPtr clock, RandomPtr random);

  /// Runs `work` in a transaction of its own, and both again while the engine takes the transaction back in favour of
  /// another station (a deadlock, a certification failure, a wait for a lock that took too long), or while the
  /// connection is lost before COMMIT and the driver makes it anew (Reconnect=Yes of the connection string). So `work`
  /// must start from the beginning each time, must leave no recordset open, and must not end the transaction.
  ///
  /// Not for use inside a transaction of the caller's own.
  ///
  /// @throws UnknownOutcome  the answer to COMMIT was lost; the unit is not run again
  /// @throws ProviderError   the last attempt's conflict, or any other failure at once; the unit is taken back
  void run(const std::function<void()>& work);

 private:
  // False when it ran into what another attempt may not meet.
  bool attempt(const std::function<void()>& work, bool isLast);
  void pause();

  data::Connection& connection_;
  RetryPolicy policy_;
  ClockPtr clock_;
  RandomPtr random_;
  std::chrono::milliseconds nextPause_{0};
};

}  // namespace qvn::host
