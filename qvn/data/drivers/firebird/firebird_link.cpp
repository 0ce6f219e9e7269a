#include "qvn/data/drivers/firebird/firebird_link.h"

#include <algorithm>
#include <limits>

#include "qvn/data/drivers/firebird/engine_modules.h"
#include "qvn/data/drivers/firebird/firebird_error.h"
#include "qvn/data/drivers/firebird/thread_locale.h"

namespace qvn::data::firebird {
namespace {

constexpr int kDialect = SQL_DIALECT_V6;

ParameterBlock parameterBlock(const DatabaseTarget& target, std::chrono::seconds connectTimeout) {
  Status status;
  ParameterBlock block(
      clientLibrary().getUtilInterface()->getXpbBuilder(status.get(), Firebird::IXpbBuilder::DPB, nullptr, 0));
  const auto add = [&](unsigned char tag, const std::string& text) {
    if (!text.empty()) block->insertString(status.get(), tag, text.c_str());
  };
  add(isc_dpb_user_name, target.user);
  // The engine inside the process checks no password.
  if (target.isOnServer) add(isc_dpb_password, target.password);
  add(isc_dpb_sql_role_name, target.role);
  add(isc_dpb_lc_ctype, target.charset);
  block->insertInt(status.get(), isc_dpb_sql_dialect, kDialect);
  const auto wait = std::min<std::chrono::seconds::rep>(connectTimeout.count(), std::numeric_limits<int>::max());
  if (wait > 0) block->insertInt(status.get(), isc_dpb_connect_timeout, static_cast<int>(wait));
  return block;
}

}  // namespace

FirebirdLink::FirebirdLink(const ConnectRequest& request) : target_(databaseTarget(request)) {
  const ParameterBlock block = parameterBlock(target_, request.connectTimeout);
  const std::unique_ptr<Firebird::IProvider, Release> provider(clientLibrary().getDispatcher());
  const Utf8ThreadLocale utf8;
  attachment_.reset(provider->attachDatabase(status(), target_.name.c_str(), block->getBufferLength(status()),
                                             block->getBuffer(status())));
  if (target_.mode == AccessMode::ReadWriteCreate && status_.hasFailed() && isFileMissing(status_)) {
    block->insertString(status(), isc_dpb_set_db_charset, "UTF8");
    attachment_.reset(provider->createDatabase(status(), target_.name.c_str(), block->getBufferLength(status()),
                                               block->getBuffer(status())));
  }
  if (status_.hasFailed()) throw connectError(status_, target_.quotedName());
}

FirebirdLink::~FirebirdLink() { keepEngineLoaded(); }

void FirebirdLink::fail() {
  isLost_ = isLost_ || isConnectionLost(status_);
  throw statementError(status_, target_.quotedName());
}

void FirebirdLink::requireConnected() const {
  if (!isLost_) return;
  throw ownError(provider_number::kUnspecified, "08003",
                 "Se perdió la conexión con la base Firebird " + target_.quotedName() + "; vuelva a conectarse");
}

void FirebirdLink::cancelStatement() noexcept {
  wasCancelled_ = true;
  Status ignored;  // a statement that has just ended needs no order
  attachment_->cancelOperation(ignored.get(), fb_cancel_raise);
}

void FirebirdLink::breakOff() noexcept {
  Status ignored;
  attachment_->cancelOperation(ignored.get(), fb_cancel_abort);
}

}  // namespace qvn::data::firebird
