#include "qvn/automation/pending_statements.h"

namespace qvn::automation {

void BridgedPendingStatements::reportFailure(std::string_view queryName, std::string_view query, const Variant& failure,
                                             std::string_view errorText) {
  Json told = event("ReportFailure");
  told.add("QueryName", toJson(queryName));
  told.add("Query", toJson(query));
  told.add("Failure", toJson(failure, session_.objects));
  told.add("ErrorText", toJson(errorText));
  session_.conversation.tell(told);
}

Json BridgedPendingStatements::event(std::string_view name) const { return objectEvent(name, *this, session_); }

}  // namespace qvn::automation
