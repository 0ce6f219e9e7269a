// The driver for MySQL and MariaDB servers, on their native client library.
//
//   registerDriver(mysqlDriver());
//   connection->Open("MySQL;SERVER=caja;DATABASE=tienda;UID=pos;PWD=...");
#pragma once

#include <memory>

#include "qvn/data/driver.h"

namespace qvn::data {

/// Serves connection strings whose driver name begins with "MySQL" in any case ("MySQLProv", "{MySQL ODBC 5.1
/// Driver}").
///
/// Parameters: SERVER, HOST or DATA SOURCE (localhost when absent): one server or several with commas between them,
/// each "host", "host:port" or "[address]:port"; PORT, for those without one; SOCKET or UNIX_SOCKET, which goes before
/// SERVER; DATABASE or INITIAL CATALOG; UID, USER, USER ID or USERNAME; PWD or PASSWORD; Connect Timeout, in seconds,
/// for each server; Server Order, InOrder (at first) or Random; Reconnect, No (at first) or Yes. Without port and
/// socket, localhost is reached through the system's default socket; with a port always over TCP. Texts are UTF-8 both
/// ways. An UPDATE counts the rows that matched, changed or not. One statement at a time; LOAD DATA LOCAL is refused.
///
/// Whatever a server answers to the log-in, also that it refuses the user or takes no statements for lack of a quorum,
/// the next one is tried; when all have failed, the error has an item for each. A lost connection is never opened again
/// silently: every further statement fails with kUnspecified. With Reconnect=Yes the statement after the failed one
/// runs on a new connection, whose session settings and temporary tables are new, too; within a transaction only after
/// ROLLBACK. A statement whose answer was lost is not repeated.
///
/// After an INSERT of several rows the inserted number is that of the first of them. A deadlock (40001) ends with
/// kStatementRefused: the connection is sound, the transaction is gone. When it comes behind rows that were never read,
/// the next statement fails with it, unless that is ROLLBACK.
std::shared_ptr<const Driver> mysqlDriver();

}  // namespace qvn::data
