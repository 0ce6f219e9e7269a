#include "qvn/data/drivers/firebird/firebird_driver.h"

#include "qvn/base/letter_case.h"
#include "qvn/data/drivers/firebird/firebird_error.h"
#include "qvn/data/drivers/firebird/firebird_session.h"

namespace qvn::data {
namespace {

constexpr std::string_view kNamePrefix = "IbOleDb";

class FirebirdDriver final : public Driver {
 public:
  [[nodiscard]] std::string_view name() const override { return firebird::kSource; }

  [[nodiscard]] bool accepts(const ConnectionString& parameters) const override {
    return equalIgnoringCase(std::string_view(parameters.driverName()).substr(0, kNamePrefix.size()), kNamePrefix);
  }

  [[nodiscard]] std::unique_ptr<Session> connect(const ConnectRequest& request) const override {
    return std::make_unique<firebird::FirebirdSession>(request);
  }
};

}  // namespace

std::shared_ptr<const Driver> firebirdDriver() { return std::make_shared<FirebirdDriver>(); }

}  // namespace qvn::data
