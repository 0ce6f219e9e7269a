// The connection of one session, as all parts of the driver use it.
#pragma once

#include <atomic>

#include "qvn/data/drivers/firebird/client_library.h"
#include "qvn/data/drivers/firebird/database_target.h"

namespace qvn::data::firebird {

class FirebirdLink {
 public:
  /// Opens the database, or makes it where the mode says so. See Driver::connect.
  explicit FirebirdLink(const ConnectRequest& request);
  FirebirdLink(const FirebirdLink&) = delete;
  FirebirdLink& operator=(const FirebirdLink&) = delete;
  ~FirebirdLink();

  [[nodiscard]] Firebird::IAttachment& attachment() const { return *attachment_; }
  [[nodiscard]] bool isReadOnly() const { return target_.mode == AccessMode::ReadOnly; }

  /// Where the next call reports to.
  [[nodiscard]] Firebird::CheckStatusWrapper* status() { return status_.get(); }
  /// Throws ProviderError when the last call failed.
  void check() {
    if (status_.hasFailed()) fail();
  }
  /// Throws ProviderError kUnspecified when an earlier call found the connection lost.
  void requireConnected() const;

  /// Tells the engine to end the statement that runs; for another thread than the one that waits for it.
  void cancelStatement() noexcept;
  /// Closes the connection under a statement that its server leaves without an answer; for another thread likewise.
  void breakOff() noexcept;
  /// True once after cancelStatement().
  bool takeCancelled() { return wasCancelled_.exchange(false); }

 private:
  [[noreturn]] void fail();

  DatabaseTarget target_;
  Status status_;
  bool isLost_ = false;
  std::atomic<bool> wasCancelled_ = false;
  AttachmentHandle attachment_;
};

}  // namespace qvn::data::firebird
