// Running what a host has put off.
#pragma once

#include "qvn/host/pending_statements.h"
#include "qvn/host/query.h"

namespace qvn::core {

/// Runs the host's pending statements one by one through the runner. A statement that fails is reported to the host,
/// once, and the next one runs. Meanwhile the runner collects failures instead of raising them.
///
/// @throws RuntimeError  91 without a runner, or when the host has no collection; 13 for an item that is no statement
void flushQueryCollection(const host::QueryPtr& Query, host::PendingStatementsHost& host);

}  // namespace qvn::core
