// The driver for Firebird and InterBase databases, on the native client library: a file opened by the engine inside
// this process, or a server.
//
//   Provider=IbOleDb;Data Source=tienda.fdb;User ID=SYSDBA
//   Provider=IbOleDb;Data Source=nueva.fdb;User ID=SYSDBA;Mode=ReadWriteCreate
//   Provider=IbOleDb;Data Source=caja/3050:/datos/tienda.fdb;User ID=SYSDBA;Password=...
#pragma once

#include <memory>

#include "qvn/data/driver.h"

namespace qvn::data {

/// Serves connection strings whose driver name begins with "IbOleDb" in any case.
///
/// Parameters: DATA SOURCE, LOCATION or DATABASE, a path or "host[/port]:path"; USER ID, UID or USER; PASSWORD or PWD;
/// ROLE; CHARSET (UTF8 when absent; texts of another one are handed over as they come); MODE: ReadWrite (the default:
/// the database must exist), ReadWriteCreate or ReadOnly. SQL is that of dialect 3.
///
/// Each statement is a transaction of its own (read committed); that of a SELECT lasts until its cursor ends. The texts
/// SET TRANSACTION, COMMIT and ROLLBACK open and end one around several statements; COMMIT and ROLLBACK without one do
/// nothing, and cursors that are open go on. A database in a file belongs to one process at a time unless firebird.conf
/// says ServerMode = Classic or SuperClassic; sessions of one process share it.
///
/// Names without quotes come in capitals. A CHAR has the blanks that pad it. The precision of a NUMERIC is that of its
/// storage: 4, 9 or 18 digits. Dates before the year 100 are given as ISO text. There is no inserted number: use INSERT
/// ... RETURNING. A text of any length may be written between quotes: long ones travel as blobs.
///
/// A statement that waits too long for another session's row ends with kTimeout, a deadlock or update conflict with
/// kStatementRefused; both are marked as lock conflicts.
std::shared_ptr<const Driver> firebirdDriver();

}  // namespace qvn::data
