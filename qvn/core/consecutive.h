// Document numbers: named counters in the table consec, one row each; `dato` is the name, `consec` the last number
// handed out. Numbers are 32-bit; a counter without a row starts with 1.
//
//   const std::int32_t folio = core::TraeSiguiente("VENTAS", connection, {}, query);
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "qvn/base/variant.h"
#include "qvn/data/connection.h"
#include "qvn/host/query.h"

namespace qvn::core {

/// Draws the next number of a counter and stores it. Two stations that draw at the same time may get the same number:
/// see TraeSiguienteSeguro.
///
/// A connection string that begins with "MySQL" (in any case) draws as TraeSiguienteConfig does and then issues
/// "LOCK TABLES consec WRITE", which stays in force until the session ends or locks something else: until then the
/// session gets an error on every other table, and other stations wait for this one.
/// On a cluster (Connection::IsClustered) it is refused before any statement: the lock would hold at one server only,
/// and two of them can end up waiting for each other for good.
/// SQL Server ("SQLNCLI" in the string) stores the number through `Query`, other engines directly.
///
/// @param Campo       name of the counter; enters the statements between quotes as it is
/// @param nErrores    not used
/// @param Query       statement runner; when null, one is created on `Connection` and stored here
/// @throws ProviderError  kNotSupported on a cluster; a statement failed, those already run stay in force
/// @throws RuntimeError   94 when the counter is Null; 6 beyond 2,147,483,647: on SQL Server and "MySQL" before the
///                        row is changed, elsewhere after it; 91 without a connection
std::int32_t TraeSiguiente(std::string_view Campo, const data::ConnectionPtr& Connection, const Variant& nErrores,
                           host::QueryPtr& Query);

/// The same on a local database.
///
/// @param SQLite  its connection: a data::Connection
/// @throws RuntimeError  13 when the object is no connection, before any statement runs; 91 when it is null; and as
///                       TraeSiguiente
std::int32_t TraeSiguienteConfig(std::string_view Campo, const std::shared_ptr<Object>& SQLite);

/// The number that the next draw would give; changes nothing. Throws as TraeSiguiente does.
std::int32_t TraePosibleSiguiente(std::string_view Campo, const data::ConnectionPtr& Connection);

/// Draws the next number so that no two stations ever get the same one, in one atomic statement or short transaction
/// and without a lock that outlives the call: for hosts that cannot accept the race of TraeSiguiente. Both may be used
/// on one counter; only numbers drawn here are safe from each other. Errors are those of host::drawCounter.
std::int32_t TraeSiguienteSeguro(std::string_view Campo, const data::ConnectionPtr& Connection);

}  // namespace qvn::core
