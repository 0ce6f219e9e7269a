#include "qvn/data/drivers/persist/persist_driver.h"

#include "qvn/base/letter_case.h"
#include "qvn/base/path.h"
#include "qvn/data/drivers/persist/saved_cursor.h"

namespace qvn::data {
namespace {

class PersistSession final : public Session {
 public:
  StatementResult execute(std::string_view sql) override {
    StatementResult result;
    result.cursor = std::make_unique<persist::SavedCursor>(hostPath(sql));
    return result;
  }

  void setCommandTimeout(std::chrono::seconds) override {}  // a file is read as fast as the disk gives it

  [[nodiscard]] std::string engineVersion() override { return "MSPersist (libxml2 " LIBXML_DOTTED_VERSION ")"; }

  [[nodiscard]] std::string literal(const Variant&, FieldType) const override {
    throw ProviderError(provider_number::kNotSupported, "Un conjunto de registros guardado no admite sentencias");
  }
};

class PersistDriver final : public Driver {
 public:
  [[nodiscard]] std::string_view name() const override { return "MSPersist"; }

  [[nodiscard]] bool accepts(const ConnectionString& parameters) const override {
    return equalIgnoringCase(parameters.driverName(), "MSPersist");
  }

  [[nodiscard]] std::unique_ptr<Session> connect(const ConnectRequest&) const override {
    return std::make_unique<PersistSession>();
  }
};

}  // namespace

std::shared_ptr<const Driver> persistDriver() { return std::make_shared<PersistDriver>(); }

}  // namespace qvn::data
