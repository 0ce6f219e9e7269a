#include <unistd.h>

#include <atomic>

#include "qvn/data/drivers/built_in.h"
#include "tests/support/databases.h"

namespace qvn::test {
namespace {

using data::FieldType;

template <std::unique_ptr<TestDatabase> (*make)()>
std::unique_ptr<TestDatabase> create() {
  data::registerBuiltInDrivers();
  return make();
}

constexpr const char* kEndlessSqlite =
    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i FROM n WHERE i < 0";

const SqlForms kSqliteForms = {.autoNumber = "INTEGER PRIMARY KEY", .beginWriting = "BEGIN IMMEDIATE"};

const SqlForms kMySqlForms = {.autoNumber = "INTEGER PRIMARY KEY AUTO_INCREMENT",
                              .typeNames = {{"TEXT", "LONGTEXT"}, {"BLOB", "LONGBLOB"}}};

}  // namespace

std::string uniqueName() {
  static std::atomic<int> counter{0};
  return "qvn_t_" + std::to_string(getpid()) + "_" + std::to_string(++counter);
}

std::function<void()> firebirdBreaker(const TestDatabase& database, data::Connection& session) {
  const auto number = session.Execute("SELECT CURRENT_CONNECTION FROM RDB$DATABASE");
  const std::string kill =
      "DELETE FROM MON$ATTACHMENTS WHERE MON$ATTACHMENT_ID = " + number->Fields(0).Value().toText();
  return [&database, kill] { database.connect()->Execute(kill); };
}

const std::vector<Engine>& engines() {
  static const std::vector<Engine> kEngines = {
      {"SQLite", &create<sqliteDatabase>, "SQLite", kEndlessSqlite, kSqliteForms},
      {"MySQL", &create<mysqlDatabase>, "MySQL", "SELECT SLEEP(20)", kMySqlForms},
  };
  return kEngines;
}

}  // namespace qvn::test
