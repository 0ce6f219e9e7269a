#include "qvn/ledger/recalculation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "tests/ledger/recalculation_books.h"
#include "tests/support/error_of.h"
#include "tests/support/provider_error_of.h"

namespace qvn::ledger {
namespace {

using test::Books;

constexpr auto kSides = {LedgerSide::Customers, LedgerSide::Suppliers};

class Recalculating : public testing::TestWithParam<test::Engine> {};

RecalculationResult recalculateAll(const Books& books, const RecalculationOptions& options = {}) {
  RecalculationResult sum;
  for (const LedgerSide side : kSides) {
    const RecalculationResult result = recalculate(side, books.connection(), options);
    sum.documents.read += result.documents.read;
    sum.documents.changed += result.documents.changed;
    sum.totals.read += result.totals.read;
    sum.totals.changed += result.totals.changed;
    sum.failed += result.failed;
    sum.isComplete = sum.isComplete && result.isComplete;
  }
  return sum;
}

TEST_P(Recalculating, LeavesWhatTheMethodsLeaveDocumentByDocument) {
  struct Row {
    const char* why;
    test::BookColumns columns;
    std::size_t batchSize;
  };
  const Row kRows[] = {
      {"doubles", {}, 500},
      {"doubles without indexes, small batches", {.hasIndexes = false}, 7},
      {"two decimals: what is stored is not what was written", {.amount = "DECIMAL(12,2)"}, 1},
  };
  const Books::PayablesMethod twin = GetParam().forms.takesQuotedAlias ? &ActualizaCuenxpag : &ActualizaSaldoPagos;
  for (unsigned seed = 1; const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    ++seed;
    const Books byTwin(GetParam(), seed, row.columns);
    byTwin.updateOneByOne(twin);
    const Books one(GetParam(), seed, row.columns);
    const Books other(GetParam(), seed, row.columns);
    ASSERT_EQ(one.dump(), other.dump());
    one.updateOneByOne();
    const RecalculationResult first = recalculateAll(other, {.batchSize = row.batchSize});
    EXPECT_EQ(one.dump(), other.dump());
    EXPECT_EQ(byTwin.dump(), other.dump());
    EXPECT_EQ(first.documents.read, 2 * Books::kDocuments);
    EXPECT_GT(first.documents.changed, Books::kDocuments);
    EXPECT_GT(first.totals.changed, 4);

    const RecalculationResult second = recalculateAll(other, {.batchSize = row.batchSize});
    EXPECT_EQ(second.documents.read, 2 * Books::kDocuments);
    EXPECT_EQ(second.documents.changed, 0);
    EXPECT_EQ(second.totals.changed, 0);
  }
}

TEST_P(Recalculating, ASimulationTellsTheChangesAndMakesNone) {
  const Books books(GetParam(), 11);
  const std::vector<std::string> before = books.dump();
  std::vector<std::string> told;
  const auto tell = [&](const BalanceChange& change) {
    if (change.stage == RecalculationStage::Documents) told.push_back(change.key + " " + change.state);
  };
  const RecalculationResult simulated = recalculateAll(books, {.isSimulated = true, .changed = tell});
  EXPECT_EQ(books.dump(), before);
  const std::vector<std::string> foretold = std::exchange(told, {});
  EXPECT_FALSE(foretold.empty());
  const RecalculationResult real = recalculateAll(books, {.changed = tell});
  EXPECT_EQ(told, foretold);
  EXPECT_EQ(real.documents.changed, simulated.documents.changed);
  EXPECT_EQ(simulated.totals.read, 0) << "they would be summed from balances that are wrong still";

  books.run("UPDATE clients SET saldo = 7000");
  const std::vector<std::string> wrongTotals = books.dump();
  const RecalculationResult totals = recalculate(LedgerSide::Customers, books.connection(), {.isSimulated = true});
  EXPECT_EQ(totals.totals.changed, 5) << "all but SIN DOCUMENTOS and SINTC";
  EXPECT_EQ(books.dump(), wrongTotals);
}

TEST_P(Recalculating, StoppedAfterAnyBatchItGoesOnWhereItWas) {
  constexpr int kBatch = 25;
  const Books whole(GetParam(), 12);
  recalculateAll(whole);
  const std::vector<std::string> after = whole.dump();
  const Books parts(GetParam(), 12);
  const std::vector<std::string> before = parts.dump();
  // 0: before the first batch; 3: after the last document, before the totals.
  for (const int allowed : {0, 1, 3}) {
    SCOPED_TRACE(allowed);
    int batches = 0;
    const RecalculationResult result =
        recalculate(LedgerSide::Customers, parts.connection(), {.batchSize = kBatch, .progress = [&](const auto& at) {
                                                                  EXPECT_EQ(at.total, Books::kDocuments);
                                                                  return batches++ < allowed;
                                                                }});
    EXPECT_FALSE(result.isComplete);
    EXPECT_EQ(result.documents.read, std::min(allowed * kBatch, Books::kDocuments));
    EXPECT_EQ(result.totals.read, 0);
    const std::vector<std::string> now = parts.dump();
    for (std::size_t i = 0; i < now.size(); ++i) {
      const bool isDone = i < static_cast<std::size_t>(std::min(allowed * kBatch, Books::kDocuments));
      EXPECT_EQ(now[i], isDone ? after[i] : before[i]) << i;
    }
  }
  EXPECT_TRUE(recalculateAll(parts).isComplete);
  EXPECT_EQ(parts.dump(), after);
}

TEST_P(Recalculating, AFailureTakesItsBatchBackAndArrivesWhole) {
  const Books books(GetParam(), 13);
  // The tables refuse this balance. Batches of 10: the document of number 3 x 25 is in the third one.
  books.run("UPDATE cobranza SET saldo = 8, estado = 'P'");
  books.run("INSERT INTO cobdet VALUES (9001, 75, 'C', 9500000)");
  std::int64_t done = -1;
  const auto error = test::providerError([&] {
    recalculate(LedgerSide::Customers, books.connection(), {.batchSize = 10, .progress = [&](const auto& at) {
                                                              done = at.done;
                                                              return true;
                                                            }});
  });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), data::provider_number::kIntegrityViolation);
  ASSERT_EQ(error->errors().size(), 1u);
  EXPECT_NE(error->errors()[0].nativeError, 0);
  EXPECT_EQ(done, 20);
  EXPECT_EQ(books.scalar("SELECT COUNT(*) FROM cobranza WHERE saldo <> 8 AND cobranza > 60"), "0");
  EXPECT_NE(books.scalar("SELECT COUNT(*) FROM cobranza WHERE saldo <> 8"), "0");
  // The connection is not left within a transaction.
  books.run("DELETE FROM cobdet WHERE id = 9001");
  EXPECT_TRUE(recalculateAll(books).isComplete);
}

TEST_P(Recalculating, WhatCannotBeTotalledIsToldAndTheOthersGoOn) {
  const Books books(GetParam(), 14);
  books.run("DELETE FROM cobdet");
  books.run("UPDATE cobranza SET cliente = 'A1', tip_cam = 2");
  books.run("UPDATE cobranza SET cliente = 'B2', tip_cam = NULL WHERE cobranza < 7");
  books.run("UPDATE cobranza SET cliente = NULL WHERE cobranza = 9");
  books.run("INSERT INTO cobdet VALUES (1, 30, 'C', 5.5)");
  books.run("UPDATE clients SET saldo = 77");
  std::vector<std::string> failed;
  const auto result = recalculate(LedgerSide::Customers, books.connection(),
                                  {.batchSize = 1, .failed = [&](const Variant& code) {
                                     failed.push_back(code.isNull() ? "(null)" : code.toText());
                                   }});
  EXPECT_TRUE(result.isComplete);
  EXPECT_EQ(failed, (std::vector<std::string>{"B2", "(null)"}));
  EXPECT_EQ(result.failed, 2);
  EXPECT_EQ(result.totals.changed, 1);
  EXPECT_EQ(books.scalar("SELECT saldo FROM clients WHERE cliente = 'A1'"), "11");
  EXPECT_EQ(books.scalar("SELECT saldo FROM clients WHERE cliente = 'B2'"), "77");
  EXPECT_EQ(books.scalar("SELECT saldo FROM clients WHERE cliente = 'SIN DOCUMENTOS'"), "77");
}

TEST_P(Recalculating, CodesEnterStatementsAsLiterals) {
  const Books books(GetParam(), 15);
  for (const char* sql :
       {"DELETE FROM cobdet", "INSERT INTO clients VALUES ('O''Higgins', 1)",
        "UPDATE cobranza SET cliente = 'O''Higgins', tip_cam = 1", "INSERT INTO cobdet VALUES (1, 30, 'C', 5.5)"}) {
    books.run(sql);
  }
  EXPECT_EQ(recalculate(LedgerSide::Customers, books.connection()).totals.changed, 1);
  EXPECT_EQ(books.scalar("SELECT saldo FROM clients WHERE cliente = 'O''Higgins'"), "5.5");
}

TEST_P(Recalculating, AMissingTableIsKnownBeforeAnythingIsWritten) {
  const Books books(GetParam(), 16);
  books.run("DROP TABLE proveed");
  EXPECT_EQ(test::errorNumber([&] { requireLedger(LedgerSide::Customers, books.connection()); }), 0);
  EXPECT_EQ(test::errorNumber([&] { requireLedger(LedgerSide::Suppliers, books.connection()); }),
            data::provider_number::kNoSuchTable);
}

TEST_P(Recalculating, RefusesNoConnectionAndNoBatch) {
  EXPECT_EQ(test::errorNumber([] { recalculate(LedgerSide::Customers, nullptr); }), error_number::kObjectNotSet);
  const auto database = GetParam().create();
  EXPECT_EQ(test::errorNumber([&] { recalculate(LedgerSide::Customers, database->connect(), {.batchSize = 0}); }),
            error_number::kInvalidCall);
}

INSTANTIATE_TEST_SUITE_P(Engines, Recalculating, testing::ValuesIn(test::engines()), test::engineName);

}  // namespace
}  // namespace qvn::ledger
