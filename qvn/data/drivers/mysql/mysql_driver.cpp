#include "qvn/data/drivers/mysql/mysql_driver.h"

#include <mysql.h>

#include "qvn/base/letter_case.h"
#include "qvn/data/drivers/mysql/mysql_error.h"
#include "qvn/data/drivers/mysql/mysql_session.h"

namespace qvn::data {
namespace {

constexpr std::string_view kNamePrefix = "MySQL";

class MysqlDriver final : public Driver {
 public:
  // The client library's own start is not safe against a second thread; this constructor runs once.
  MysqlDriver() { mysql_library_init(0, nullptr, nullptr); }

  [[nodiscard]] std::string_view name() const override { return mysql::kSource; }

  [[nodiscard]] bool accepts(const ConnectionString& parameters) const override {
    return equalIgnoringCase(std::string_view(parameters.driverName()).substr(0, kNamePrefix.size()), kNamePrefix);
  }

  [[nodiscard]] std::unique_ptr<Session> connect(const ConnectRequest& request) const override {
    return std::make_unique<mysql::MysqlSession>(request);
  }
};

}  // namespace

std::shared_ptr<const Driver> mysqlDriver() {
  static const auto kDriver = std::make_shared<const MysqlDriver>();
  return kDriver;
}

}  // namespace qvn::data
