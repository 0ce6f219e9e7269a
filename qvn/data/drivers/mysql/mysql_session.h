// An open connection to a server, as the layers above use it.
#pragma once

#include "qvn/data/driver.h"
#include "qvn/data/drivers/mysql/answer_wait.h"
#include "qvn/data/drivers/mysql/mysql_link.h"
#include "qvn/data/provider_error.h"

namespace qvn::data::mysql {

class MysqlSession final : public Session {
 public:
  /// Connects. See Driver::connect.
  explicit MysqlSession(const ConnectRequest& request);

  /// A statement without rows that the server finished just before it was told to end it is in force, and gives its
  /// outcome although it took too long. Where the connection string says so, a lost connection is made anew before the
  /// statement is sent, unless rows were on their way on it or a transaction was open: that must be ended with ROLLBACK
  /// first. A statement is never sent twice.
  StatementResult execute(std::string_view sql) override;
  void setCommandTimeout(std::chrono::seconds timeout) override;
  [[nodiscard]] std::string engineVersion() override;
  [[nodiscard]] bool isClustered() const override { return link_.isClustered(); }
  [[nodiscard]] std::string literal(const Variant& value, FieldType type) const override;

 private:
  // Lets the server end a wait for another session's row before the statement's own time is over, so that the error
  // tells what it was that took so long.
  void limitLockWait();
  // Waits for the first row or the outcome.
  StatementResult run(std::string_view sql, AnswerWait& wait);
  // False when the server or the library reports an error.
  [[nodiscard]] bool send(std::string_view sql, AnswerWait& wait);
  // Sends a statement of the session's own, whose failure concerns the host only when it took the transaction back.
  void sendAside(std::string_view sql, AnswerWait& wait);
  // Connects anew where the connection string asks for it and nothing is lost by it.
  void reopenIfLost(std::string_view sql);

  MysqlLink link_;
  std::chrono::seconds timeout_;
};

}  // namespace qvn::data::mysql
