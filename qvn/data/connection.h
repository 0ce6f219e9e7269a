// A connection to a database, as hosts hold and pass it.
//
//   auto connection = Connection::create();
//   connection->Open("Provider=SQLite;Data Source=tienda.db");
//   connection->Execute("UPDATE caja SET aplicado = 1 WHERE abono = 7");
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qvn/data/property_bag.h"
#include "qvn/data/provider_error.h"
#include "qvn/data/recordset.h"

namespace qvn::data {

/// Sees every statement text as it is issued, before the engine runs it.
using StatementObserver = std::function<void(std::string_view sql)>;

class Connection final : public Object, public std::enable_shared_from_this<Connection> {
 public:
  /// A closed connection.
  static ConnectionPtr create();
  ~Connection() override;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// The text as the host wrote it; dialects are found in it. It cannot be changed while the connection is open
  /// (ProviderError kObjectOpen).
  [[nodiscard]] const std::string& ConnectionString() const { return connectionString_; }
  void setConnectionString(std::string text);

  /// Where recordsets that say nothing else keep their rows; Server at first.
  [[nodiscard]] CursorLocation cursorLocation() const { return location_; }
  void setCursorLocation(CursorLocation location) { location_ = location; }

  /// Longest time for a statement until its first row, 30 seconds at first; zero waits for ever.
  [[nodiscard]] std::chrono::seconds CommandTimeout() const { return commandTimeout_; }
  /// Throws RuntimeError 5 for a negative time.
  void setCommandTimeout(std::chrono::seconds timeout);

  /// Settings of the provider by name, kept for the driver that knows them.
  [[nodiscard]] PropertyBag& Properties() { return properties_; }

  /// Opens what ConnectionString() names.
  /// @throws ProviderError  kObjectOpen when it is open already, kBadConnectionString, kNoSuchProvider, kLoginRefused,
  /// or
  ///         kUnspecified when the server or file cannot be reached; the connection then stays closed
  void Open();
  /// Sets the connection string first; user and password, when not empty, go before those of the connection string.
  void Open(std::string connectionString, const std::string& user = {}, const std::string& password = {});

  /// Runs one statement. Returns its rows, streamed; a statement without rows gives a closed recordset.
  /// Throws ProviderError kObjectClosed, or what the engine reports.
  RecordsetPtr Execute(std::string_view sql);
  /// As above; writes back how many rows the statement changed.
  RecordsetPtr Execute(std::string_view sql, std::int64_t& recordsAffected);

  /// Closes the connection and every recordset that is open on it. Harmless on a closed connection.
  void Close() noexcept;
  [[nodiscard]] ObjectState State() const { return session_ ? ObjectState::Open : ObjectState::Closed; }

  /// Name of the driver that opened the connection last, such as "SQLite"; "" before the first time.
  [[nodiscard]] const std::string& DriverName() const { return driverName_; }
  /// Product and version of the engine, such as "SQLite 3.40.1". Throws ProviderError kObjectClosed, or what the engine
  /// reports.
  [[nodiscard]] std::string EngineVersion();

  /// True when the engine is one of several that hold the same data, as it said when the connection was made: there a
  /// table lock keeps out only those who work on the same one. Throws ProviderError kObjectClosed.
  [[nodiscard]] bool IsClustered() const { return session().isClustered(); }

  /// `value` as the engine's literal, for statements that are put together: 'O''Higgins', 12.5, '2012-03-07', NULL. A
  /// Boolean is 1 or 0. Throws ProviderError kObjectClosed, RuntimeError 13 for what no statement can hold.
  [[nodiscard]] std::string Literal(const Variant& value) const;

  /// What the provider reported for the last operation that it refused.
  [[nodiscard]] const std::vector<ErrorItem>& Errors() const { return errors_; }

  void setStatementObserver(StatementObserver observer) { observer_ = std::move(observer); }

 private:
  friend class Recordset;
  Connection() = default;

  StatementResult run(std::string_view sql);
  [[nodiscard]] Session& session() const;
  // Runs a step that may ask the engine; keeps the errors that it reports.
  template <typename Step>
  auto keepingErrors(Step step) -> decltype(step());
  void attach(Recordset& recordset) noexcept;
  void detach(Recordset& recordset) noexcept;

  std::string connectionString_;
  std::string driverName_;
  CursorLocation location_ = CursorLocation::Server;
  std::chrono::seconds commandTimeout_{30};
  PropertyBag properties_;
  std::unique_ptr<Session> session_;
  Recordset* firstOpen_ = nullptr;  // those that are open on this connection, linked by themselves
  std::vector<ErrorItem> errors_;
  StatementObserver observer_;
};

template <typename Step>
auto Connection::keepingErrors(Step step) -> decltype(step()) {
  try {
    return step();
  } catch (const ProviderError& error) {
    if (!error.errors().empty()) errors_ = error.errors();
    throw;
  }
}

}  // namespace qvn::data
