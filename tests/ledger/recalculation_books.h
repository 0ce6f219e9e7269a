// The books of a shop, customers and suppliers, filled with documents of every kind, on any engine. Two of one seed
// hold the same rows, so that two ways to bring them up to date can be compared.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "qvn/ledger/payables.h"
#include "qvn/ledger/recalculation.h"
#include "tests/support/test_database.h"

namespace qvn::test {

struct BookColumns {
  std::string amount = "DOUBLE PRECISION";
  bool hasIndexes = true;
};

class Books {
 public:
  static constexpr int kDocuments = 60;  // on each side
  Books(const Engine& engine, unsigned seed, const BookColumns& columns = {});

  void run(const std::string& sql) const { connection_->Execute(sql); }
  /// First value of the first row as text; "(null)" for NULL.
  [[nodiscard]] std::string scalar(const std::string& sql) const;
  /// Balance and state of every document and the total of every owner, a line for each row, as exactly as the engine
  /// stores them.
  [[nodiscard]] std::vector<std::string> dump() const;
  /// ActualizaSaldoPagos or its twin.
  using PayablesMethod = void (*)(const Variant& nCuenxpag, const host::AmbientePtr& Ambiente);
  /// What the ledger's own methods make of every document, one after the other.
  void updateOneByOne(PayablesMethod updatePayable = &ledger::ActualizaSaldoPagos) const;

  [[nodiscard]] const data::ConnectionPtr& connection() const { return connection_; }
  [[nodiscard]] const TestDatabase& database() const { return *database_; }

 private:
  void create(const BookColumns& columns) const;
  void fill(unsigned seed) const;

  std::unique_ptr<TestDatabase> database_;
  data::ConnectionPtr connection_;
  std::string beginWriting_;
};

}  // namespace qvn::test
