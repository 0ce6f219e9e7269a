#include "qvn/core/error_handler.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>

#include "qvn/core/pending_statements.h"
#include "qvn/core/recordsets.h"
#include "qvn/dialogs/scripted_dialogs.h"
#include "tests/support/error_of.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/test_database.h"

namespace qvn::core {
namespace {

using test::FixedClock;

class ErrorLog : public testing::Test {
 protected:
  ErrorLog() { ambiente_->setCarpetaDeErrores(folder_.path("")); }
  bool handle(std::string_view description, std::int32_t number, FixedClock clock) {
    return Err_Handler(ambiente_, "frmVentas", "Guardar", description, number, dialogs_, clock);
  }
  static Date at(int day, int hour, int minute, int second) {
    return Date::fromCivil(2012, 3, day, {hour, minute, second});
  }

  test::ScratchFolder folder_;
  std::shared_ptr<host::SimpleAmbiente> ambiente_ = std::make_shared<host::SimpleAmbiente>();
  dialogs::ScriptedDialogs dialogs_;
};

TEST_F(ErrorLog, IsWrittenAfterTheErrorWasShown) {
  const auto record = [](const std::string& time, const std::string& description) {
    return time + " Ocurrió un error:\r\nModule: frmVentas\r\nFunction: Guardar\r\nDescription: " + description +
           "\r\n";
  };
  const std::string first = record("10:42:07", "Division by zero");
  EXPECT_TRUE(handle("Division by zero", 11, FixedClock({at(7, 10, 42, 7)})));
  EXPECT_EQ(dialogs_.shown(), (std::vector<dialogs::ScriptedDialogs::Shown>{{"message", first}}));
  EXPECT_EQ(folder_.bytes("QuorvinError07032012.Log"), first + "\r\n");
  // The dialog stays open over midnight: the record's time is before it, the file's date after.
  EXPECT_TRUE(handle("ñ", -2147217900, FixedClock({at(7, 23, 59, 59), at(8, 0, 0, 3)})));
  EXPECT_EQ(folder_.bytes("QuorvinError07032012.Log"), first + "\r\n");
  EXPECT_TRUE(handle("", 0, FixedClock({at(8, 13, 5, 0)})));
  EXPECT_EQ(folder_.bytes("QuorvinError08032012.Log"),
            record("23:59:59", "ñ") + "\r\n" + record("13:05:00", "") + "\r\n");
  EXPECT_EQ(folder_.fileCount(), 2);
}

TEST_F(ErrorLog, ALostConnectionIsShownAndNotLogged) {
  EXPECT_FALSE(handle("cualquiera", -2147467259, FixedClock({at(7, 10, 42, 7)})));
  EXPECT_EQ(dialogs_.shown().back().text,
            "Se ha desconectado a la base de datos debido a un problema de conexión en su red o el servidor ha sido "
            "detenido");
  EXPECT_EQ(folder_.fileCount(), 0);
}

TEST_F(ErrorLog, AFolderThatCannotBeWrittenIsNoMatter) {
  for (const std::string& folder : {folder_.path("no/hay"), std::string("/proc"), std::string("a\0b", 3)}) {
    ambiente_->setCarpetaDeErrores(folder);
    EXPECT_TRUE(handle("x", 5, FixedClock({at(7, 10, 42, 7)})));
  }
  EXPECT_EQ(dialogs_.shown().size(), 3U);
  ambiente_ = nullptr;
  EXPECT_EQ(test::errorNumber([&] { handle("x", 5, FixedClock({at(7, 10, 42, 7)})); }), error_number::kObjectNotSet);
  EXPECT_EQ(dialogs_.shown().size(), 4U);
}

TEST_F(ErrorLog, StationsWriteSideBySide) {
  constexpr int kStations = 8;
  constexpr int kRecords = 1000;
  for (int station = 0; station < kStations; ++station) {
    if (fork() != 0) continue;
    const std::string description(static_cast<std::size_t>(100 + station * 300), static_cast<char>('a' + station));
    for (int i = 0; i < kRecords; ++i) handle(description, 5, FixedClock({at(7, 10, 42, 7)}));
    _exit(0);
  }
  while (wait(nullptr) > 0) {
  }
  std::map<std::string, int> counts;
  std::string text = folder_.bytes("QuorvinError07032012.Log");
  for (std::size_t from = 0, end = 0; (end = text.find("\r\n\r\n", from)) != std::string::npos; from = end + 4) {
    ++counts[text.substr(from, end - from)];
  }
  ASSERT_EQ(counts.size(), static_cast<std::size_t>(kStations));
  for (const auto& [record, count] : counts) EXPECT_EQ(count, kRecords) << record.substr(0, 100);
}

class PendingHost final : public host::PendingStatementsHost {
 public:
  void beginFlush() override { calls.emplace_back("begin"); }
  std::shared_ptr<host::Collection> pendingStatements() override { return pending; }
  void reportFailure(std::string_view name, std::string_view query, const Variant& failure,
                     std::string_view error) override {
    EXPECT_TRUE(failure.toBoolean());
    EXPECT_FALSE(error.empty());
    calls.push_back(std::string(name) + ": " + std::string(query));
  }
  void endFlush() override { calls.emplace_back("end"); }
  std::shared_ptr<host::Collection> pending = std::make_shared<host::Collection>();
  std::vector<std::string> calls;
};

TEST(PendingStatements, FailuresAreReportedAndTheOthersRun) {
  const auto database = test::engines().front().create();
  const auto connection = database->connect();
  connection->Execute("CREATE TABLE t (i INTEGER PRIMARY KEY)");
  const auto query = std::make_shared<host::Query>();
  query->Conexion(connection);
  PendingHost pending;
  const auto add = [&](const char* sql, const char* name) {
    pending.pending->Add(ObjectPtr(std::make_shared<host::PendingStatement>(sql, name)));
  };
  add("INSERT INTO t VALUES (1)", "uno");
  add("INSERT INTO t VALUES (1)", "otra vez");
  add("INSERT INTO nada VALUES (1)", "sin tabla");
  add("INSERT INTO t VALUES (2)", "dos");
  flushQueryCollection(query, pending);
  EXPECT_EQ(pending.calls, (std::vector<std::string>{"begin", "otra vez: INSERT INTO t VALUES (1)",
                                                     "sin tabla: INSERT INTO nada VALUES (1)", "end"}));
  EXPECT_EQ(CreaRecordSet("SELECT SUM(i) FROM t", connection)->Fields(0).Value().toLong(), 3);
  // The runner raises its failures again.
  EXPECT_NE(test::errorNumber([&] { host::runStatement(*query, "INSERT INTO nada VALUES (1)"); }), 0);
  pending.pending->Add(7);
  EXPECT_EQ(test::errorNumber([&] { flushQueryCollection(query, pending); }), error_number::kTypeMismatch);
  EXPECT_FALSE(query->Recolecta());
}

}  // namespace
}  // namespace qvn::core
