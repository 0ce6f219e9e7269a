// A small shop for the ledger tests: the columns that the ledger touches, on any engine.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qvn/host/ambiente.h"
#include "tests/support/test_database.h"

namespace qvn::test {

class Shop {
 public:
  explicit Shop(const Engine& engine);

  /// Runs a statement without showing it to the observer of statements().
  void run(std::string_view sql) { setup_->Execute(sql); }
  /// First value of the first row as text; "(null)" for NULL.
  [[nodiscard]] std::string scalar(std::string_view sql);
  /// First row's values joined by "|".
  [[nodiscard]] std::string row(std::string_view sql);

  [[nodiscard]] const data::ConnectionPtr& connection() const { return connection_; }
  [[nodiscard]] host::AmbientePtr ambiente() const { return std::make_shared<host::SimpleAmbiente>(connection_); }
  /// What the library issued on connection() so far.
  [[nodiscard]] const std::vector<std::string>& statements() const { return statements_; }
  void forgetStatements() { statements_.clear(); }

 private:
  std::unique_ptr<TestDatabase> database_;
  data::ConnectionPtr setup_;
  data::ConnectionPtr connection_;
  std::vector<std::string> statements_;
};

}  // namespace qvn::test
