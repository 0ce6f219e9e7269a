// What counts as already stored, by the type of the column that holds it.
#include <gtest/gtest.h>

#include "qvn/ledger/stored_amount.h"
#include "tests/support/test_database.h"

namespace qvn::ledger {
namespace {

struct Row {
  const char* why;
  const char* type;
  const char* stored;
  const char* amount;
  bool isHeld;
};

class StoredAmount : public testing::TestWithParam<test::Engine> {
 protected:
  bool holds(const Row& row, DecimalStorage storage) {
    database_ = GetParam().create();
    const auto connection = database_->connect();
    connection->Execute("CREATE TABLE t (a " + GetParam().typeName(row.type) + ")");
    connection->Execute("INSERT INTO t VALUES (" + std::string(row.stored) + ")");
    return holdsAmount(connection->Execute("SELECT a FROM t")->Fields(0), row.amount, storage);
  }
  std::unique_ptr<test::TestDatabase> database_;
};

TEST_P(StoredAmount, AsTheColumnKeepsIt) {
  constexpr Row kRows[] = {
      {"equal", "DOUBLE", "0.1", "0.1", true},
      {"the text has 15 digits, the column more", "DOUBLE", "0.30000000000000004", "0.3", false},
      {"NULL is no amount", "DOUBLE", "NULL", "0", false},
      {"no number of SQL", "DOUBLE", "0", "INF", false},
      {"by value, not by digits", "DECIMAL(12,2)", "12.50", "12.5", true},
      {"half a cent goes away from zero", "DECIMAL(12,2)", "-0.13", "-0.125", true},
      {"less than half a cent is dropped", "DECIMAL(12,2)", "0.01", "0.010000000000005", true},
      {"a carry through all digits", "DECIMAL(12,2)", "100", "99.995", true},
      {"one cent off", "DECIMAL(12,2)", "0.02", "0.010000000000005", false},
      {"no decimals", "DECIMAL(12,0)", "13", "12.5", true},
      {"zero that lost its sign", "DECIMAL(12,2)", "0", "-0.004", true},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(holds(row, DecimalStorage::Rounded), row.isHeld);
  }
}

TEST_P(StoredAmount, WithoutRoundingOnlyTheSameDecimalIsHeld) {
  EXPECT_FALSE(holds({"", "DECIMAL(12,2)", "0.01", "0.010000000000005", false}, DecimalStorage::AsGiven));
  EXPECT_TRUE(holds({"", "DECIMAL(12,2)", "12.5", "12.5", true}, DecimalStorage::AsGiven));
}

INSTANTIATE_TEST_SUITE_P(Engines, StoredAmount,
                         testing::Values(test::engines()[0], test::engines()[1], test::engines()[3]), test::engineName);

}  // namespace
}  // namespace qvn::ledger
