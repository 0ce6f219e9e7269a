#include "qvn/host/counter_draw.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <string>

#include "qvn/base/runtime_error.h"
#include "qvn/data/engine_family.h"
#include "qvn/data/transaction.h"
#include "qvn/host/unit_of_work.h"

namespace qvn::host {
namespace {

using data::EngineFamily;
using std::chrono::steady_clock;

constexpr std::int32_t kLastNumber = 2147483647;
constexpr std::chrono::seconds kPatienceWithoutTimeout{60};

// A counter, its engine, and its name as the engine's literal.
struct Counter {
  data::Connection& connection;
  EngineFamily family;
  std::string name;
};

bool isConflict(const data::ProviderError& error) {
  return std::ranges::any_of(error.errors(), [](const data::ErrorItem& item) { return item.isLockConflict; });
}

// The increment yields the new number in the same statement, or keeps it for the session.
std::string incrementText(const Counter& counter) {
  const std::string start = "UPDATE consec SET consec = ";
  const std::string which = " WHERE dato = " + counter.name + " AND consec < " + std::to_string(kLastNumber);
  switch (counter.family) {
    case EngineFamily::MySql:
      return start + "LAST_INSERT_ID(consec + 1)" + which;
    case EngineFamily::SqlServer:
      return start + "consec + 1 OUTPUT INSERTED.consec" + which;
    case EngineFamily::Firebird:
      return start + "consec + 1" + which + " RETURNING consec";
    default:
      return start + "consec + 1" + which;
  }
}

std::string selectText(const Counter& counter) { return "SELECT consec FROM consec WHERE dato = " + counter.name; }

std::optional<std::int32_t> firstNumber(data::Recordset& rows) {
  if (rows.State() == data::ObjectState::Closed || rows.Eof()) return std::nullopt;
  const Variant& number = rows.Fields(0).Value();
  // Firebird answers an UPDATE without rows with a row of NULL.
  if (number.isNull()) return std::nullopt;
  return number.toLong();
}

// Through ODBC the engine's RETURNING yields nothing, so that the number is read in a transaction instead.
std::optional<std::int32_t> incrementOnSqlite(const Counter& counter) {
  data::Transaction transaction(counter.connection);
  std::int64_t affected = 0;
  counter.connection.Execute(incrementText(counter), affected);
  if (affected == 0) return std::nullopt;
  const auto number = firstNumber(*counter.connection.Execute(selectText(counter)));
  transaction.commit();
  return number;
}

std::optional<std::int32_t> increment(const Counter& counter) {
  if (counter.family == EngineFamily::Sqlite) return incrementOnSqlite(counter);
  std::int64_t affected = 0;
  const auto rows = counter.connection.Execute(incrementText(counter), affected);
  if (counter.family != EngineFamily::MySql) return firstNumber(*rows);
  if (affected == 0) return std::nullopt;
  return firstNumber(*counter.connection.Execute("SELECT LAST_INSERT_ID()"));
}

std::string insertText(const Counter& counter, std::int32_t number) {
  const std::string start = "INSERT INTO consec (consec, dato) SELECT " + std::to_string(number) + ", " + counter.name;
  const std::string test = " WHERE NOT EXISTS (SELECT dato FROM consec WHERE dato = " + counter.name + ")";
  switch (counter.family) {
    case EngineFamily::MySql:
      return start + " FROM DUAL" + test;
    case EngineFamily::Firebird:
      return start + " FROM RDB$DATABASE" + test;
    case EngineFamily::SqlServer:
      return start +
             " WHERE NOT EXISTS (SELECT dato FROM consec WITH (UPDLOCK, HOLDLOCK) WHERE dato = " + counter.name + ")";
    default:
      return start + test;
  }
}

// On a cluster the servers compare what transactions wrote when they end, which a single statement that keeps its
// number for the session does not wait for: the number counts once COMMIT has been answered.
std::int32_t drawOnCluster(const Counter& counter) {
  std::int32_t next = 1;
  UnitOfWork(counter.connection).run([&] {
    const auto rows = counter.connection.Execute(selectText(counter) + " FOR UPDATE");
    if (rows->Eof()) {
      counter.connection.Execute("INSERT INTO consec (consec, dato) VALUES (1, " + counter.name + ")");
      next = 1;
      return;
    }
    const std::int32_t current = rows->Fields(0).Value().toLong();
    rows->Close();
    if (current == kLastNumber) throw RuntimeError(error_number::kOverflow);
    next = current + 1;
    counter.connection.Execute("UPDATE consec SET consec = " + std::to_string(next) + " WHERE dato = " + counter.name);
  });
  return next;
}

bool insertMissing(const Counter& counter, std::int32_t number) {
  std::optional<data::Transaction> reservation;
  if (counter.family == EngineFamily::Firebird) {
    // The engine does not see rows that another station has not committed yet: the whole table is reserved.
    reservation.emplace(counter.connection, "SET TRANSACTION READ COMMITTED RESERVING consec FOR PROTECTED WRITE");
  }
  std::int64_t affected = 0;
  counter.connection.Execute(insertText(counter, number), affected);
  if (reservation) reservation->commit();
  return affected > 0;
}

// Why a counter that has a row did not move; nothing when it may have come into being meanwhile.
void requireMovable(const Counter& counter) {
  const auto rows = counter.connection.Execute(selectText(counter));
  if (rows->Eof()) return;
  if (rows->Fields(0).Value().toLong() == kLastNumber) throw RuntimeError(error_number::kOverflow);
}

Counter counterOf(data::Connection& connection, std::string_view name) {
  Counter counter{connection, engineFamily(connection), connection.Literal(std::string(name))};
  if (counter.family == EngineFamily::Other) {
    throw data::ProviderError(data::provider_number::kNotSupported,
                              "Este motor no ofrece una forma segura de tomar consecutivos entre estaciones");
  }
  return counter;
}

// Repeats `attempt` until it gives a value, also when another station stood in the way.
template <typename Attempt>
auto patiently(const data::Connection& connection, Attempt attempt) {
  const std::chrono::seconds timeout = connection.CommandTimeout();
  const auto deadline = steady_clock::now() + (timeout.count() == 0 ? kPatienceWithoutTimeout : timeout);
  while (true) {
    const bool isLate = steady_clock::now() >= deadline;
    try {
      if (const auto value = attempt()) return *value;
    } catch (const data::ProviderError& error) {
      if (!isConflict(error) || isLate) throw;
    }
    if (isLate) {
      throw data::ProviderError(data::provider_number::kTimeout,
                                "Otras estaciones tomaron consecutivos todo el tiempo; vuelva a intentarlo");
    }
  }
}

}  // namespace

std::int32_t drawCounter(data::Connection& connection, std::string_view name) {
  const Counter counter = counterOf(connection, name);
  return patiently(connection, [&]() -> std::optional<std::int32_t> {
    if (connection.IsClustered()) return drawOnCluster(counter);
    if (const auto number = increment(counter)) return number;
    if (insertMissing(counter, 1)) return 1;
    requireMovable(counter);
    return std::nullopt;
  });
}

void raiseCounter(data::Connection& connection, std::string_view name, std::int32_t number) {
  const Counter counter = counterOf(connection, name);
  const std::string limit = std::to_string(number);
  patiently(connection, [&]() -> std::optional<bool> {
    if (insertMissing(counter, number)) return true;
    connection.Execute("UPDATE consec SET consec = " + limit + " WHERE dato = " + counter.name + " AND consec < " +
                       limit);
    return true;
  });
}

}  // namespace qvn::host
