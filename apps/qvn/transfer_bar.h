// How far a backup or a restore has come, how fast it goes and how long it will still take.
#pragma once

#include <chrono>
#include <string>

#include "apps/qvn/progress_bar.h"
#include "qvn/mysqladmin/transfer.h"

namespace qvn::cli {

/// "clients, 12.5 MB/s, faltan 0:42"; the last part from the second second on.
std::string transferLabel(const mysqladmin::TransferProgress& at, std::chrono::duration<double> elapsed);

/// Shows it on a terminal a few times in a second.
class TransferBar {
 public:
  TransferBar(Output& messages, bool isWanted) : bar_(messages, isWanted) {}

  void show(const mysqladmin::TransferProgress& at);
  void clear() { bar_.clear(); }

  /// Shows each step; ends the work when the person wants it to end.
  mysqladmin::TransferObserver observer();

 private:
  using Clock = std::chrono::steady_clock;

  ProgressBar bar_;
  Clock::time_point begun_ = Clock::now();
  Clock::time_point shown_;
};

}  // namespace qvn::cli
