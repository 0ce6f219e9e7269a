// A recalculation beside a station that saves a payment between the reading and the writing of a batch.
#include <gtest/gtest.h>

#include <algorithm>
#include <future>
#include <optional>
#include <string>
#include <string_view>

#include "qvn/ledger/recalculation.h"
#include "qvn/ledger/receivables.h"
#include "tests/ledger/recalculation_books.h"
#include "tests/support/provider_error_of.h"

namespace qvn::ledger {
namespace {

/// What docs/recalculation.md says of an engine.
struct Meeting {
  const char* engine;
  bool stationWaits;          // until the batch is written
  bool recalculationFails;    // and is repeated
  const char* balanceBefore;  // of the paid document, before the second run
};

class RecalculationBesideAStation : public testing::TestWithParam<Meeting> {
 protected:
  static const test::Engine& engine() {
    return *std::ranges::find(test::engines(), std::string(GetParam().engine), &test::Engine::name);
  }
  test::Books books_{engine(), 21};
  data::ConnectionPtr station_ = books_.database().connect();

  // The document 30 owes 100 less 40, and pays 25.5.
  void SetUp() override {
    for (const char* sql :
         {"DELETE FROM cobdet WHERE cobranza = 30", "INSERT INTO cobdet VALUES (9001, 30, 'C', 100)",
          "INSERT INTO cobdet VALUES (9002, 30, 'A', 40)", "UPDATE cobranza SET saldo = 7, tip_cam = 1"}) {
      books_.run(sql);
    }
  }
  void payDocument() const {
    station_->Execute("INSERT INTO cobdet VALUES (9003, 30, 'A', 25.5)");
    host::QueryPtr query;
    ActualizaSaldo(30, std::make_shared<host::SimpleAmbiente>(station_), query);
  }
  [[nodiscard]] std::string balance() const { return books_.scalar("SELECT saldo FROM cobranza WHERE cobranza = 30"); }

  // The payment begins when the first document is about to be written, and ends before it where nothing holds it up.
  // Gives what the recalculation failed with.
  [[nodiscard]] std::optional<data::ProviderError> recalculateBesideThePayment() {
    std::future<void> payment;
    books_.connection()->setStatementObserver([&](std::string_view sql) {
      if (payment.valid() || !sql.starts_with("UPDATE cobranza")) return;
      payment = std::async(std::launch::async, [this] { payDocument(); });
      if (!GetParam().stationWaits) payment.wait();
    });
    auto error = test::providerError([&] { recalculate(LedgerSide::Customers, books_.connection()); });
    books_.connection()->setStatementObserver({});
    payment.get();
    return error;
  }
};

TEST_P(RecalculationBesideAStation, EndsWithThePayment) {
  const auto error = recalculateBesideThePayment();
  EXPECT_EQ(error && error->errors().at(0).isLockConflict, GetParam().recalculationFails);
  EXPECT_EQ(error.has_value(), GetParam().recalculationFails);
  EXPECT_EQ(balance(), GetParam().balanceBefore);

  // Neither session is left within a transaction or waits for the other.
  EXPECT_TRUE(recalculate(LedgerSide::Customers, books_.connection()).isComplete);
  EXPECT_EQ(balance(), "34.5");
  const std::vector<std::string> after = books_.dump();
  books_.updateOneByOne([](const Variant&, const host::AmbientePtr&) {});
  EXPECT_EQ(books_.dump(), after);
  station_->Execute("UPDATE cobranza SET saldo = 0");
}

INSTANTIATE_TEST_SUITE_P(Engines, RecalculationBesideAStation,
                         testing::Values(Meeting{"SQLite", true, false, "34.5"},
                                         Meeting{"FirebirdServer", false, true, "34.5"},
                                         Meeting{"MySQL", false, false, "60"}),
                         [](const auto& parameter) { return parameter.param.engine; });

}  // namespace
}  // namespace qvn::ledger
