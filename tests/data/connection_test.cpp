#include "qvn/data/connection.h"

#include <gtest/gtest.h>

#include "qvn/data/driver_registry.h"
#include "qvn/data/drivers/built_in.h"
#include "tests/support/error_of.h"
#include "tests/support/provider_error_of.h"

namespace qvn::data {
namespace {

using test::errorNumber;
using test::providerError;

class ConnectionTest : public testing::Test {
 protected:
  void SetUp() override { registerBuiltInDrivers(); }
  ConnectionPtr connection_ = Connection::create();
};

TEST_F(ConnectionTest, OpeningFailsWithTheNumberOfTheFault) {
  struct Row {
    const char* why;
    const char* text;
    std::int32_t number;
    const char* words;  // part of the description
  };
  static constexpr Row kRows[] = {
      {"unknown provider", "Provider=Nadie;PWD=secreto", provider_number::kNoSuchProvider, "Nadie"},
      {"no provider", "", provider_number::kNoSuchProvider, "SQLite"},
      {"malformed", "Provider=SQLite;x", provider_number::kBadConnectionString, "nombre=valor"},
      {"no file named", "Provider=SQLite", provider_number::kBadConnectionString, "Data Source"},
      {"unknown mode", "Provider=SQLite;Data Source=:memory:;Mode=x", provider_number::kBadConnectionString, "Mode"},
      {"missing file", "Provider=SQLite;Data Source=/no/existe.db", provider_number::kUnspecified, "/no/existe.db"},
      {"a folder", "Provider=SQLite;Data Source=/tmp", provider_number::kUnspecified, "/tmp"},
      {"server not running", "MySQL;SOCKET=/no/existe.sock;UID=u;PWD=secreto", provider_number::kUnspecified, "MySQL"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    const auto error = providerError([&] { connection_->Open(row.text); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), row.number);
    EXPECT_NE(error->description().find(row.words), std::string::npos) << error->description();
    EXPECT_EQ(error->description().find("secreto"), std::string::npos);
    EXPECT_EQ(connection_->State(), ObjectState::Closed);
    EXPECT_EQ(connection_->ConnectionString(), row.text);
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
