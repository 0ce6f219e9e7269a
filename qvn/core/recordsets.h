// Recordsets of the four kinds that hosts and the rest of the library use. Each call opens a new one with the caller's
// statement on the caller's connection; a failure is the provider's error, and nothing is returned.
#pragma once

#include <string_view>

#include "qvn/data/connection.h"

namespace qvn::core {

/// Fast reading: cursor on the connection's default side (the server's, unless the host changed it), forward-only,
/// read-only. `porPantalla` does not change it.
data::RecordsetPtr CreaRecordSet(std::string_view strSQL, const data::ConnectionPtr& Connection,
                                 bool porPantalla = false);

/// Read, navigable and counted: client, keyset, read-only.
data::RecordsetPtr CreaRecordSetEnCliente(std::string_view strSQL, const data::ConnectionPtr& Connection);

/// Rows to be edited: client, keyset, pessimistic.
data::RecordsetPtr RecordWrite(std::string_view strSQL, const data::ConnectionPtr& Connection);

/// Read once from a copy on the client: client, forward-only, read-only. `bolPantalla` does not change it.
data::RecordsetPtr RstRO(std::string_view strSQL, const data::ConnectionPtr& Connection, bool bolPantalla = false);

/// Runs the statement on the connection itself and returns what that gives.
data::RecordsetPtr FastRst(std::string_view strSQL, const data::ConnectionPtr& Connection);

}  // namespace qvn::core
