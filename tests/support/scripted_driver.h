// An engine that answers as a test tells it to.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "qvn/data/connection.h"
#include "qvn/data/driver.h"
#include "qvn/data/driver_registry.h"

namespace qvn::test {

/// What its statements meet, and what they were.
struct Script {
  /// For each statement, what its runs meet one after the other: an error, or success for an item without a number.
  std::map<std::string, std::deque<data::ErrorItem>, std::less<>> answers;
  bool isClustered = false;
  std::vector<std::string> statements;
};

class ScriptedSession final : public data::Session {
 public:
  explicit ScriptedSession(std::shared_ptr<Script> script) : script_(std::move(script)) {}
  data::StatementResult execute(std::string_view sql) override {
    script_->statements.emplace_back(sql);
    const auto answers = script_->answers.find(sql);
    if (answers == script_->answers.end() || answers->second.empty()) return {};
    const data::ErrorItem answer = answers->second.front();
    answers->second.pop_front();
    if (answer.number != 0) throw data::ProviderError({answer});
    return {};
  }
  void setCommandTimeout(std::chrono::seconds /*timeout*/) override {}
  [[nodiscard]] std::string engineVersion() override { return "MariaDB"; }
  [[nodiscard]] bool isClustered() const override { return script_->isClustered; }
  [[nodiscard]] std::string literal(const Variant& value, data::FieldType /*type*/) const override {
    return "'" + value.toText() + "'";
  }

 private:
  std::shared_ptr<Script> script_;
};

/// Serves every connection string whose driver name is "MySQL-Script".
class ScriptedDriver final : public data::Driver {
 public:
  explicit ScriptedDriver(std::shared_ptr<Script> script) : script_(std::move(script)) {}
  [[nodiscard]] std::string_view name() const override { return "Script"; }
  [[nodiscard]] bool accepts(const data::ConnectionString& parameters) const override {
    return parameters.driverName() == "MySQL-Script";
  }
  [[nodiscard]] std::unique_ptr<data::Session> connect(const data::ConnectRequest& /*request*/) const override {
    return std::make_unique<ScriptedSession>(script_);
  }

 private:
  std::shared_ptr<Script> script_;
};

/// An open connection to such an engine.
inline data::ConnectionPtr connectionTo(const std::shared_ptr<Script>& script) {
  data::registerDriver(std::make_shared<ScriptedDriver>(script));
  auto connection = data::Connection::create();
  connection->Open("MySQL-Script");
  return connection;
}

}  // namespace qvn::test
