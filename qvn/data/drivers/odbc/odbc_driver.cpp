#include "qvn/data/drivers/odbc/odbc_driver.h"

#include "qvn/data/drivers/odbc/odbc_session.h"
#include "qvn/data/drivers/odbc/odbc_target.h"

namespace qvn::data {
namespace {

class OdbcDriver final : public Driver {
 public:
  [[nodiscard]] std::string_view name() const override { return "ODBC"; }
  [[nodiscard]] bool accepts(const ConnectionString& parameters) const override { return odbc::isForOdbc(parameters); }
  [[nodiscard]] std::unique_ptr<Session> connect(const ConnectRequest& request) const override {
    return std::make_unique<odbc::OdbcSession>(request);
  }
};

}  // namespace

std::shared_ptr<const Driver> odbcDriver() { return std::make_shared<OdbcDriver>(); }

}  // namespace qvn::data
