// A MySQL database as a text file of statements, in the form that DatabaseRestore reads.
#pragma once

#include <string_view>

#include "qvn/base/clock.h"
#include "qvn/data/connection.h"
#include "qvn/mysqladmin/backup_report.h"
#include "qvn/mysqladmin/transfer.h"

namespace qvn::mysqladmin {

/// Writes the structure and the rows of every table of the database that the connection string names behind
/// "DATABASE=", as docs/backup.md shows. The file is made anew, readable by its owner alone. Rows are streamed, so that
/// memory does not grow with the tables.
///
/// Every value is written between quotes. Exact decimals have two decimals, line feeds are left out, carriage returns
/// become the four characters "\r\n", dates are in ISO form; other numbers are written as their text in the regional
/// settings of the call. In place of a Null stands the text of the value before it. backupFaithfully
/// (faithful_backup.h) keeps all of these.
///
/// Errors are passed over: a step that fails is left out and the dump goes on with the next one; the report tells
/// which.
///
/// @param strFileName  path of the dump
/// @param conn         an open connection to the database
BackupReport DatabaseBackup(std::string_view strFileName, const data::ConnectionPtr& conn, Clock& clock,
                            const TransferOptions& options = {});

/// The text of a connection string behind "DATABASE=", without regard to case, up to the next ";"; "" without it.
std::string_view namedDatabase(std::string_view connectionString);

}  // namespace qvn::mysqladmin
