// Rows that could not be saved, and what their user is told.
#include <gtest/gtest.h>

#include "qvn/core/error_handler.h"
#include "qvn/core/recordsets.h"
#include "qvn/data/driver_registry.h"
#include "qvn/dialogs/scripted_dialogs.h"
#include "tests/support/alias_driver.h"
#include "tests/support/error_of.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/recorded_messages.h"
#include "tests/support/test_database.h"

namespace qvn::core {
namespace {

using data::ErrorItem;
using data::provider_number::kUnspecified;

// Reports on every UPDATE what a test prepared.
class RefusingDriver final : public data::Driver {
 public:
  [[nodiscard]] std::string_view name() const override { return "Refusing"; }
  [[nodiscard]] bool accepts(const data::ConnectionString& parameters) const override {
    return parameters.driverName() == "Refusing";
  }
  [[nodiscard]] std::unique_ptr<data::Session> connect(const data::ConnectRequest& request) const override {
    return std::make_unique<RefusingSession>(test::AliasDriver().connect(request));
  }
  static inline std::vector<ErrorItem> errors;

 private:
  class RefusingSession final : public data::Session {
   public:
    explicit RefusingSession(std::unique_ptr<data::Session> real) : real_(std::move(real)) {}
    data::StatementResult execute(std::string_view sql) override {
      if (sql.starts_with("UPDATE")) throw data::ProviderError(errors);
      return real_->execute(sql);
    }
    void setCommandTimeout(std::chrono::seconds timeout) override { real_->setCommandTimeout(timeout); }
    std::string engineVersion() override { return real_->engineVersion(); }
    [[nodiscard]] std::string literal(const Variant& value, data::FieldType type) const override {
      return real_->literal(value, type);
    }

   private:
    std::unique_ptr<data::Session> real_;
  };
};

constexpr const char* kTable = "CREATE TABLE t (i INTEGER NOT NULL PRIMARY KEY, n INTEGER)";

TEST(FailedUpdate, ShowsWhatTheProviderReported) {
  data::registerDriver(std::make_shared<RefusingDriver>());
  const auto connection = data::Connection::create();
  connection->Open("Provider=Refusing");
  connection->Execute(kTable);
  connection->Execute("INSERT INTO t VALUES (1, 1)");
  const ErrorItem refused{-2147217900, "No se pudo", 1064, "42000", "MySQL", "ayuda.hlp", 12, false};
  const ErrorItem lost{kUnspecified, "Se fue", 2013, "08S01", "MySQL", "", 0, false};
  const ErrorItem held{kUnspecified, "Ocupado", -1611, "HY000", "MySQL", "", 0, false};
  const std::string refusedText =
      "Error #-2147217900 No se pudo\r\nNativeError: 1064\r\nSQLState: 42000\r\nReported by: MySQL\r\nHelp file: "
      "ayuda.hlp\r\nHelp Context ID: 12";
  const std::string lostText =
      "Error #-2147467259 Se fue\r\nNativeError: 2013\r\nSQLState: 08S01\r\nReported by: MySQL\r\nHelp file: \r\nHelp "
      "Context ID: 0";
  const std::string heldText =
      "No es posible actualizar el registro porque otro usuario lo esta usando o tiene dos ventanas con el mismo "
      "registro abiertas";
  struct Row {
    std::vector<ErrorItem> errors;
    std::string expected;
  };
  const Row rows[] = {
      {{refused}, refusedText},
      {{lost}, lostText},
      {{refused, lost}, refusedText + lostText},
      {{held}, heldText},
      {{refused, held, lost}, heldText},
  };
  for (const Row& row : rows) {
    RefusingDriver::errors = row.errors;
    test::RecordedMessages messages;
    const auto rst = RecordWrite("SELECT * FROM t", connection);
    rst->Fields("n").setValue(2);
    Agregar(rst, messages);
    EXPECT_EQ(messages.shown, (std::vector<std::string>{row.expected + "|64|"}));
    rst->CancelUpdate();
  }
}

class FailedUpdateOnEngine : public testing::TestWithParam<test::Engine> {
 protected:
  FailedUpdateOnEngine() {
    connection_->Execute(kTable);
    connection_->Execute("INSERT INTO t VALUES (1, 1)");
    connection_->setCommandTimeout(std::chrono::seconds{2});
    rst_ = RecordWrite("SELECT * FROM t", connection_);
    rst_->Fields("n").setValue(5);
  }
  std::unique_ptr<test::TestDatabase> database_ = GetParam().create();
  data::ConnectionPtr connection_ = database_->connect();
  data::RecordsetPtr rst_;
  test::RecordedMessages messages_;
};

TEST_P(FailedUpdateOnEngine, AnotherUsersRowIsToldAsSuch) {
  {
    const auto other = database_->connect();
    other->Execute(GetParam().forms.beginWriting);
    other->Execute("UPDATE t SET n = 7 WHERE i = 1");
    Agregar(rst_, messages_);
    ASSERT_EQ(messages_.shown.size(), 1U);
    EXPECT_TRUE(messages_.shown[0].starts_with("No es posible actualizar el registro porque otro usuario"));
  }
  // The other session is gone and its change with it: the row is saved now.
  Agregar(rst_, messages_);
  EXPECT_EQ(messages_.shown.size(), 1U);
  EXPECT_EQ(CreaRecordSet("SELECT n FROM t", connection_)->Fields(0).Value().toLong(), 5);
}

TEST_P(FailedUpdateOnEngine, AKilledSessionIsALostConnection) {
  if (GetParam().driver == "SQLite" || GetParam().name == "OdbcSqlite")
    return;  // nothing stands between it and its file
  database_->breakerOf (*connection_)();
  const std::int32_t number = test::errorNumber([&] { rst_->Update(); });
  EXPECT_EQ(number, kUnspecified);
  dialogs::ScriptedDialogs dialogs;
  test::FixedClock clock({Date::fromCivil(2012, 3, 7)});
  EXPECT_FALSE(
      Err_Handler(nullptr, "frmVentas", "Guardar", connection_->Errors()[0].description, number, dialogs, clock));
  ASSERT_EQ(dialogs.shown().size(), 1U);
  EXPECT_TRUE(dialogs.shown()[0].text.starts_with("Se ha desconectado a la base de datos"));
  Agregar(rst_, messages_);
  ASSERT_EQ(messages_.shown.size(), 1U);
  EXPECT_TRUE(messages_.shown[0].starts_with("Error #-2147467259 ")) << messages_.shown[0];
}

INSTANTIATE_TEST_SUITE_P(Engines, FailedUpdateOnEngine, testing::ValuesIn(test::engines()), test::engineName);

}  // namespace
}  // namespace qvn::core
