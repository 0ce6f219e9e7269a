// The statement runner of a ledger operation.
#pragma once

#include <string>

#include "qvn/data/connection.h"
#include "qvn/host/query.h"

namespace qvn::ledger {

/// When `query` is null, creates one on `connection` and stores it there for the caller to keep.
void provideQuery(host::QueryPtr& query, const data::ConnectionPtr& connection);

/// Hands the runner one statement and runs it at once.
void runStatement(host::Query& query, std::string statement);

}  // namespace qvn::ledger
