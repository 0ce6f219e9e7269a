// One open connection to a server, and the cursor whose rows are still on their way on it.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <utility>

#include "qvn/data/drivers/mysql/handles.h"
#include "qvn/data/drivers/mysql/server_address.h"
#include "qvn/data/provider_error.h"

namespace qvn::data::mysql {

class MysqlCursor;

class MysqlLink {
 public:
  /// Connects and logs in. Throws ProviderError kLoginRefused or kUnspecified.
  MysqlLink(ServerAddress address, std::chrono::seconds connectTimeout);

  [[nodiscard]] MYSQL* handle() const { return handle_.get(); }
  [[nodiscard]] std::string serverName() const { return address_.quotedName(); }

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

  /// True when the server said last that a transaction is open.
  [[nodiscard]] bool isInTransaction() const noexcept;

  /// Keeps a failure that took the session's transaction back behind rows that nobody reads any more, for the next
  /// statement: it would run outside the transaction that the host believes in.
  void keepLostTransaction(ProviderError failure) { lostTransaction_ = std::move(failure); }
  /// That failure, once.
  [[nodiscard]] std::optional<ProviderError> takeLostTransaction() {
    return std::exchange(lostTransaction_, std::nullopt);
  }

 private:
  ServerAddress address_;
  ConnectionHandle handle_;
  MysqlCursor* reader_ = nullptr;
  std::optional<ProviderError> lostTransaction_;
};

}  // namespace qvn::data::mysql
