// A host of pending statements that lives in the bridge: what fails is told as events.
#pragma once

#include <memory>
#include <utility>

#include "qvn/automation/session.h"
#include "qvn/automation/values.h"
#include "qvn/host/pending_statements.h"

namespace qvn::automation {

/// Raises BeginFlush, ReportFailure and EndFlush. `session` must outlive the object.
class BridgedPendingStatements final : public Object, public host::PendingStatementsHost {
 public:
  explicit BridgedPendingStatements(const Session& session) : session_(session) {}

  void beginFlush() override { session_.conversation.tell(event("BeginFlush")); }
  [[nodiscard]] std::shared_ptr<host::Collection> pendingStatements() override { return statements_; }
  void reportFailure(std::string_view queryName, std::string_view query, const Variant& failure,
                     std::string_view errorText) override;
  void endFlush() override { session_.conversation.tell(event("EndFlush")); }

 private:
  [[nodiscard]] Json event(std::string_view name) const;

  const Session& session_;
  std::shared_ptr<host::Collection> statements_ = std::make_shared<host::Collection>();
};

}  // namespace qvn::automation
