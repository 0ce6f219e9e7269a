// One open connection to one of the servers that a connection string names, and the cursor whose rows are still on
// their way on it.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "qvn/base/random.h"
#include "qvn/data/drivers/mysql/handles.h"
#include "qvn/data/drivers/mysql/server_address.h"
#include "qvn/data/drivers/mysql/server_list.h"
#include "qvn/data/provider_error.h"

namespace qvn::data::mysql {

class MysqlCursor;

class MysqlLink {
 public:
  /// Connects to the first server that takes the log-in and runs statements. When none does, throws ProviderError with
  /// one item for each, refused log-ins first: kLoginRefused or kUnspecified.
  MysqlLink(ServerList list, RandomPtr random);

  [[nodiscard]] MYSQL* handle() const { return handle_.get(); }

  /// Does the constructor's work anew; the handle is another one then, also when it throws. No cursor may be reading.
  void connectAgain();

  /// True when the connection is known to be lost: an error said so, or the server has hung up.
  [[nodiscard]] bool isLost() const noexcept;
  [[nodiscard]] bool reconnects() const { return list_.reconnects; }
  /// True when the server is a member of a cluster, as it said when the connection was made.
  [[nodiscard]] bool isClustered() const { return isClustered_; }

  /// The error that the handle reports for a statement; a lost connection is remembered.
  [[nodiscard]] ProviderError lastError();

  /// Asks the server, over a short second connection, to end the statement that runs on this one. True when the server
  /// took the order; the statement's answer still comes on this connection.
  [[nodiscard]] bool cancelStatement() const noexcept;

  /// Ends the connection under a call that waits for the server, which then fails. The handle stays valid, and every
  /// further call on it fails at once.
  void breakOff() const noexcept;

  /// Reads and drops the results that follow the one just read, as those of a stored procedure do. False when the
  /// handle reports an error.
  [[nodiscard]] bool dropFurtherResults() const noexcept;

  /// The cursor that reads its rows from this connection, null when none does. It registers and removes itself.
  [[nodiscard]] MysqlCursor* reader() const { return reader_; }
  void setReader(MysqlCursor* reader) { reader_ = reader; }

  /// True when the server said last that a transaction is open; false on a lost connection.
  [[nodiscard]] bool isInTransaction() const noexcept;
  /// To be called when a statement of the host has succeeded: remembers whether a transaction is open since.
  void rememberTransaction() noexcept;
  /// True when a transaction was open after the host's last statement that succeeded.
  [[nodiscard]] bool hadTransaction() const { return hadTransaction_; }

  /// Keeps a failure that nobody else hears of of a transaction for the next statement, if it took the transaction
  /// back: that statement would run outside the transaction that the host believes in.
  void keepLostTransaction(const ProviderError& failure);
  /// That failure, once.
  [[nodiscard]] std::optional<ProviderError> takeLostTransaction() {
    return std::exchange(lostTransaction_, std::nullopt);
  }

 private:
  void connectTo(const ServerAddress& address);
  // Asks whether the server is in a cluster. Throws ProviderError for a member that takes no statements.
  void learnCluster();
  // One value of the answer's first row; "" when there is none.
  std::string ask(std::string_view question, unsigned column);

  ServerList list_;
  RandomPtr random_;
  ServerAddress address_;  // of the server behind the handle
  ConnectionHandle handle_;
  bool isLost_ = false;
  bool hadTransaction_ = false;
  bool isClustered_ = false;
  MysqlCursor* reader_ = nullptr;
  std::optional<ProviderError> lostTransaction_;
};

}  // namespace qvn::data::mysql
