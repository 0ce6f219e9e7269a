#include "qvn/data/connection.h"

#include <gtest/gtest.h>

#include "qvn/data/driver_registry.h"
#include "qvn/data/drivers/built_in.h"
#include "tests/support/error_of.h"
#include "tests/support/failures.h"

namespace qvn::data {
namespace {

using test::errorNumber;

class ConnectionTest : public testing::Test {
 protected:
  void SetUp() override { registerBuiltInDrivers(); }
  ConnectionPtr connection_ = Connection::create();
};

TEST_F(ConnectionTest, OpeningFailsWithTheNumberOfTheFault) {
  using namespace provider_number;
  const std::vector<test::Failure> failures = {
      {.cause = "Provider=Nadie;PWD=secreto", .number = kNoSuchProvider, .words = "Nadie"},
      {.cause = "", .number = kNoSuchProvider, .words = "SQLite"},
      {.cause = "Provider=SQLite;x", .number = kBadConnectionString, .words = "nombre=valor"},
      {.cause = "Provider=SQLite", .number = kBadConnectionString, .words = "Data Source"},
      {.cause = "Provider=SQLite;Data Source=:memory:;Mode=x", .number = kBadConnectionString, .words = "Mode"},
      {.cause = "Provider=SQLite;Data Source=/no/existe.db", .number = kUnspecified, .words = "/no/existe.db"},
      {.cause = "Provider=SQLite;Data Source=/tmp", .number = kUnspecified, .words = "/tmp"},
      {.cause = "MySQL;SOCKET=/no/existe.sock;UID=u;PWD=secreto", .number = kUnspecified, .words = "MySQL"},
  };
  for (const test::Failure& failure : failures) {
    test::expectFailures("", {failure}, [this](const std::string& text) { connection_->Open(text); });
    EXPECT_EQ(connection_->State(), ObjectState::Closed);
    EXPECT_EQ(connection_->ConnectionString(), failure.cause);
  }
}

TEST_F(ConnectionTest, SettingsAndProperties) {
  EXPECT_EQ(errorNumber([&] { connection_->setCommandTimeout(std::chrono::seconds{-1}); }), error_number::kInvalidCall);
  connection_->Properties().set("Jet OLEDB:Database Password", "x");
  connection_->Properties().set("jet oledb:database password", "y");
  EXPECT_EQ(connection_->Properties().get("JET OLEDB:DATABASE PASSWORD").toText(), "y");
  EXPECT_TRUE(connection_->Properties().get("otra").isEmpty());
  connection_->Open("Provider=SQLite;Data Source=:memory:");
  EXPECT_EQ(errorNumber([&] { connection_->setConnectionString("x"); }), provider_number::kObjectOpen);
}

TEST_F(ConnectionTest, RecordsetTakesTheConnectionsCursorLocation) {
  connection_->Open("Provider=SQLite;Data Source=:memory:");
  connection_->setCursorLocation(CursorLocation::Client);
  Recordset rows;
  rows.Open("SELECT 1 UNION SELECT 2", connection_);
  EXPECT_EQ(rows.RecordCount(), 2);
  EXPECT_EQ(errorNumber([&] { rows.setLockType(LockType::Optimistic); }), provider_number::kObjectOpen);
  EXPECT_EQ(connection_->Execute("SELECT 1")->RecordCount(), -1);
}

TEST_F(ConnectionTest, RecordsetOnAConnectionOfItsOwn) {
  Recordset rows;
  rows.Open("SELECT 42", "Provider=SQLite;Data Source=:memory:");
  EXPECT_EQ(rows.Fields(0).Value().toLong(), 42);
  rows.Close();
  EXPECT_EQ(errorNumber([&] { rows.Open("SELECT 1", ConnectionPtr()); }), error_number::kObjectNotSet);
  EXPECT_EQ(errorNumber([&] { rows.Open("SELECT 1", Connection::create()); }), provider_number::kObjectClosed);
}

}  // namespace
}  // namespace qvn::data
