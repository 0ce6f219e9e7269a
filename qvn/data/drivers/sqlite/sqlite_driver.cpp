#include "qvn/data/drivers/sqlite/sqlite_driver.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>

#include "qvn/base/letter_case.h"
#include "qvn/base/path.h"
#include "qvn/data/drivers/sqlite/handles.h"
#include "qvn/data/drivers/sqlite/sqlite_cursor.h"
#include "qvn/data/drivers/sqlite/sqlite_error.h"
#include "qvn/data/drivers/sqlite/sqlite_literal.h"

namespace qvn::data {
namespace {

using std::chrono::steady_clock;

// Steps of the engine's virtual machine between two looks at the clock; some microseconds' worth.
constexpr int kStepsPerLook = 4096;

// Of the block that a connection keeps for statements; those that are kept ready need some too.
constexpr int kPieceBytes = 1200;
constexpr int kPieces = 300;

class SqliteSession final : public Session {
 public:
  SqliteSession(sqlite::DatabaseHandle database, std::chrono::seconds timeout) : database_(std::move(database)) {
    SqliteSession::setCommandTimeout(timeout);
    const auto isLate = [](void* until) -> int {
      return steady_clock::now() > *static_cast<steady_clock::time_point*>(until) ? 1 : 0;
    };
    sqlite3_progress_handler(database_.get(), kStepsPerLook, isLate, &deadline_);
  }

  StatementResult execute(std::string_view sql) override;

  void setCommandTimeout(std::chrono::seconds timeout) override {
    timeout_ = timeout;
    // The engine knows no endless wait; the longest it takes is 24 days.
    constexpr auto kLongest = std::chrono::milliseconds{std::numeric_limits<int>::max()};
    const auto wait = timeout.count() == 0 ? kLongest : std::min<std::chrono::milliseconds>(timeout, kLongest);
    sqlite3_busy_timeout(database_.get(), static_cast<int>(wait.count()));
  }

  [[nodiscard]] std::string engineVersion() override { return std::string("SQLite ") + sqlite3_libversion(); }

  [[nodiscard]] std::string literal(const Variant& value, FieldType type) const override {
    return sqlite::literal(value, type);
  }

 private:
  sqlite::StatementHandle prepare(std::string_view sql);
  int firstStep(sqlite3_stmt* statement);

  sqlite::DatabaseHandle database_;
  sqlite::StatementCachePtr statements_ = std::make_shared<sqlite::StatementCache>();
  std::chrono::seconds timeout_{};
  steady_clock::time_point deadline_ = steady_clock::time_point::max();  // of the statement whose first row is awaited
};

sqlite::StatementHandle prepareOne(sqlite3* database, std::string_view sql, std::string_view& rest) {
  sqlite3_stmt* statement = nullptr;
  const char* tail = nullptr;
  if (sql.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    throw sqlite::errorWithText(SQLITE_TOOBIG, "la sentencia es demasiado larga");
  }
  const int code = sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &statement, &tail);
  sqlite::StatementHandle owned(statement);
  if (code != SQLITE_OK) throw sqlite::lastError(database, "No se pudo ejecutar la sentencia");
  rest = sql.substr(static_cast<std::size_t>(tail - sql.data()));
  return owned;
}

sqlite::StatementHandle SqliteSession::prepare(std::string_view sql) {
  if (sqlite::StatementHandle known = statements_->take(sql)) return known;
  if (sql.find('\0') != std::string_view::npos) {
    throw sqlite::errorWithText(SQLITE_ERROR, "La sentencia lleva un carácter nulo, donde el motor dejaría de leer");
  }
  std::string_view rest;
  sqlite::StatementHandle statement = prepareOne(database_.get(), sql, rest);
  if (!statement) throw sqlite::errorWithText(SQLITE_ERROR, "La sentencia está vacía");
  // What follows may only be blanks and comments: a code with a quote must not smuggle in a second statement.
  while (rest.find_first_not_of(" \t\r\n;") != std::string_view::npos) {
    if (prepareOne(database_.get(), rest, rest)) {
      throw sqlite::errorWithText(SQLITE_ERROR, "El texto lleva más de una sentencia; ejecútelas una por una");
    }
  }
  return statement;
}

int SqliteSession::firstStep(sqlite3_stmt* statement) {
  if (timeout_.count() == 0) return sqlite3_step(statement);
  deadline_ = steady_clock::now() + timeout_;
  const int code = sqlite3_step(statement);
  deadline_ = steady_clock::time_point::max();
  return code;
}

StatementResult SqliteSession::execute(std::string_view sql) {
  sqlite::StatementHandle statement = prepare(sql);
  const std::int64_t changesBefore = sqlite3_total_changes64(database_.get());
  const int code = firstStep(statement.get());
  if (code != SQLITE_ROW && code != SQLITE_DONE) {
    throw sqlite::lastError(database_.get(), "No se pudo ejecutar la sentencia");
  }
  sqlite::CachedStatement ran(std::move(statement), statements_);
  StatementResult result;
  // The count of changes is that of the last statement that made any.
  if (sqlite3_total_changes64(database_.get()) != changesBefore) {
    result.affectedRows = sqlite3_changes64(database_.get());
    result.insertedNumber = sqlite3_last_insert_rowid(database_.get());
  }
  if (sqlite3_column_count(ran.get()) > 0) {
    result.cursor = std::make_unique<sqlite::SqliteCursor>(std::move(ran), code == SQLITE_ROW);
  }
  return result;
}

struct OpenMode {
  std::string_view name;
  int flags;
};

constexpr auto kOpenModes = std::to_array<OpenMode>({
    {"ReadWrite", SQLITE_OPEN_READWRITE},
    {"ReadWriteCreate", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE},
    {"ReadOnly", SQLITE_OPEN_READONLY},
});

int openFlags(const ConnectionString& parameters) {
  const std::string name = parameters.value({"Mode"}).value_or("ReadWrite");
  const auto* mode =
      std::ranges::find_if(kOpenModes, [&](const OpenMode& known) { return equalIgnoringCase(known.name, name); });
  if (mode != kOpenModes.end()) return mode->flags;
  throw ProviderError(provider_number::kBadConnectionString,
                      "La cadena de conexión tiene un valor de «Mode» que no existe; use ReadWrite, ReadWriteCreate o "
                      "ReadOnly");
}

std::string databasePath(const ConnectionString& parameters) {
  const std::string path = parameters.value({"Data Source", "Database"}).value_or("");
  if (path.empty()) {
    throw ProviderError(provider_number::kBadConnectionString,
                        "La cadena de conexión no dice qué archivo abrir; agregue «Data Source=ruta»");
  }
  return path == ":memory:" ? path : hostPath(path).string();
}

class SqliteDriver final : public Driver {
 public:
  [[nodiscard]] std::string_view name() const override { return "SQLite"; }

  [[nodiscard]] bool accepts(const ConnectionString& parameters) const override {
    return equalIgnoringCase(parameters.driverName(), "SQLite");
  }

  [[nodiscard]] std::unique_ptr<Session> connect(const ConnectRequest& request) const override {
    const std::string path = databasePath(request.parameters);
    sqlite3* opened = nullptr;
    // A connection serves one thread at a time, so the engine need not lock at every call.
    const int flags = openFlags(request.parameters) | SQLITE_OPEN_NOMUTEX;
    const int code = sqlite3_open_v2(path.c_str(), &opened, flags, nullptr);
    sqlite::DatabaseHandle database(opened);
    const std::string doing = "No se pudo abrir la base de datos «" + path + "»";
    if (code != SQLITE_OK) throw sqlite::lastError(database.get(), doing);
    sqlite3_extended_result_codes(database.get(), 1);
    // Before the first statement: the engine then takes the small pieces that statements are made of from one block.
    sqlite3_db_config(database.get(), SQLITE_DBCONFIG_LOOKASIDE, nullptr, kPieceBytes, kPieces);
    auto session = std::make_unique<SqliteSession>(std::move(database), request.commandTimeout);
    // The file is first read here, so that what is no database is refused now and not at the first statement; another
    // station that writes is waited for.
    if (sqlite3_exec(opened, "PRAGMA schema_version", nullptr, nullptr, nullptr) != SQLITE_OK) {
      throw sqlite::lastError(opened, doing);
    }
    return session;
  }
};

}  // namespace

std::shared_ptr<const Driver> sqliteDriver() { return std::make_shared<SqliteDriver>(); }

}  // namespace qvn::data
