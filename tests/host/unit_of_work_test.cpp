#include "qvn/host/unit_of_work.h"

#include <gtest/gtest.h>

#include "tests/support/error_of.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/provider_error_of.h"
#include "tests/support/scripted_driver.h"

namespace qvn::host {
namespace {

using data::ErrorItem;
using Statements = std::vector<std::string>;
namespace number = data::provider_number;

const ErrorItem kDeadlock{
    .number = number::kStatementRefused, .nativeError = 1213, .sqlState = "40001", .isLockConflict = true};
const ErrorItem kLockWait{.number = number::kTimeout, .nativeError = 1205, .sqlState = "HY000", .isLockConflict = true};
const ErrorItem kOtherEngines{.number = number::kStatementRefused, .sqlState = "40001"};
const ErrorItem kLost{
    .number = number::kUnspecified, .nativeError = 2013, .sqlState = "HY000", .isLostConnection = true};
const ErrorItem kTimeout{.number = number::kTimeout, .nativeError = 1317, .sqlState = "70100"};
const ErrorItem kDuplicate{.number = number::kIntegrityViolation, .nativeError = 1062, .sqlState = "23000"};
const ErrorItem kDone{};

class OneHalf final : public RandomSource {
 public:
  double next() override { return 0.5; }
};

class UnitOfWorkTest : public testing::Test {
 protected:
  void run(int attempts = 4) {
    UnitOfWork unit(*connection_, {attempts, std::chrono::milliseconds(100), std::chrono::milliseconds(300)}, clock_,
                    std::make_shared<OneHalf>());
    unit.run([&] { connection_->Execute("UPDATE"); });
  }
  void answer(const char* statement, std::deque<ErrorItem> answers) {
    script_->answers[statement] = std::move(answers);
  }
  [[nodiscard]] const Statements& statements() const { return script_->statements; }

  std::shared_ptr<test::Script> script_ = std::make_shared<test::Script>();
  data::ConnectionPtr connection_ = test::connectionTo(script_);
  std::shared_ptr<test::FixedClock> clock_ = std::make_shared<test::FixedClock>(std::vector<Date>{Date()});
};

TEST_F(UnitOfWorkTest, IsOneTransaction) {
  run();
  EXPECT_EQ(statements(), (Statements{"BEGIN", "UPDATE", "COMMIT"}));
  EXPECT_TRUE(clock_->slept.empty());
}

TEST_F(UnitOfWorkTest, RunsAgainAfterAConflict) {
  for (const ErrorItem& conflict : {kDeadlock, kLockWait, kOtherEngines, kLost}) {
    SCOPED_TRACE(conflict.nativeError);
    script_->statements.clear();
    answer("UPDATE", {conflict});
    run();
    EXPECT_EQ(statements(), (Statements{"BEGIN", "UPDATE", "ROLLBACK", "BEGIN", "UPDATE", "COMMIT"}));
  }
}

TEST_F(UnitOfWorkTest, RunsAgainWhenTheServersRefuseTheCommit) {
  answer("COMMIT", {kDeadlock});
  run();
  EXPECT_EQ(statements(), (Statements{"BEGIN", "UPDATE", "COMMIT", "ROLLBACK", "BEGIN", "UPDATE", "COMMIT"}));
}

TEST_F(UnitOfWorkTest, PausesGrowUpToALimitAndDependOnChance) {
  answer("UPDATE", {kDeadlock, kDeadlock, kDeadlock});
  run();
  using std::chrono::milliseconds;
  EXPECT_EQ(clock_->slept, (std::vector<milliseconds>{milliseconds(75), milliseconds(150), milliseconds(225)}));
}

TEST_F(UnitOfWorkTest, GivesUpAfterTheLastAttempt) {
  answer("UPDATE", {kDeadlock, kDeadlock, kDeadlock});
  const auto error = test::providerError([&] { run(2); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->errors().front().nativeError, 1213);
  EXPECT_EQ(statements(), (Statements{"BEGIN", "UPDATE", "ROLLBACK", "BEGIN", "UPDATE", "ROLLBACK"}));
}

TEST_F(UnitOfWorkTest, AnyOtherFailureIsToldAtOnce) {
  for (const ErrorItem& failure : {kDuplicate, kTimeout}) {
    SCOPED_TRACE(failure.nativeError);
    script_->statements.clear();
    answer("UPDATE", {failure});
    EXPECT_EQ(test::errorNumber([&] { run(); }), failure.number);
    EXPECT_EQ(statements(), (Statements{"BEGIN", "UPDATE", "ROLLBACK"}));
  }
  script_->statements.clear();
  UnitOfWork unit(*connection_);
  EXPECT_EQ(test::errorNumber([&] { unit.run([] { throw RuntimeError(error_number::kOverflow); }); }),
            error_number::kOverflow);
  EXPECT_EQ(statements(), (Statements{"BEGIN", "ROLLBACK"}));
}

// The driver does not make the connection anew: nothing can be run again.
TEST_F(UnitOfWorkTest, ALostConnectionThatStaysLostIsTold) {
  answer("UPDATE", {kLost});
  answer("ROLLBACK", {kLost});
  const auto error = test::providerError([&] { run(); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->errors().front().nativeError, 2013);
  EXPECT_EQ(statements(), (Statements{"BEGIN", "UPDATE", "ROLLBACK"}));
}

TEST_F(UnitOfWorkTest, ACommitWhoseAnswerWasLostIsNeverRepeated) {
  for (const ErrorItem& failure : {kLost, kTimeout}) {
    SCOPED_TRACE(failure.nativeError);
    script_->statements.clear();
    answer("COMMIT", {failure});
    try {
      run();
      ADD_FAILURE() << "no error";
    } catch (const UnknownOutcome& error) {
      EXPECT_EQ(error.number(), failure.number);
      EXPECT_EQ(error.errors().front().nativeError, failure.nativeError);
      EXPECT_TRUE(error.description().starts_with("No se sabe si la operación quedó guardada")) << error.description();
    }
    EXPECT_EQ(statements(), (Statements{"BEGIN", "UPDATE", "COMMIT", "ROLLBACK"}));
  }
}

TEST_F(UnitOfWorkTest, ACommitThatBreaksAnIntegrityRuleIsKnownToHaveFailed) {
  answer("COMMIT", {kDuplicate});
  try {
    run();
    ADD_FAILURE() << "no error";
  } catch (const UnknownOutcome&) {
    ADD_FAILURE() << "the outcome is known";
  } catch (const data::ProviderError& error) {
    EXPECT_EQ(error.number(), number::kIntegrityViolation);
  }
}

// A lost connection may be found by BEGIN already, before anything was written.
TEST_F(UnitOfWorkTest, RunsAgainWhenTheConnectionWasLostBeforeItBegan) {
  answer("BEGIN", {kLost});
  run();
  EXPECT_EQ(statements(), (Statements{"BEGIN", "ROLLBACK", "BEGIN", "UPDATE", "COMMIT"}));
}

}  // namespace
}  // namespace qvn::host
