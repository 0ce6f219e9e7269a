// What became of a backup, a restore or a verification, for the person.
#pragma once

#include <string_view>

#include "apps/qvn/command.h"
#include "qvn/mysqladmin/backup_report.h"
#include "qvn/mysqladmin/database_restore.h"

namespace qvn::cli {

// Each writes a line of results, and on standard error what was left out or failed. Failed when anything was.

ExitStatus tellBackup(const mysqladmin::BackupReport& report, std::string_view path, Context& context);
ExitStatus tellRestore(const mysqladmin::RestoreReport& report, Context& context);
/// Verifies the dump of that path first, under a bar if one is wanted.
ExitStatus verifyAndTell(std::string_view path, const data::ConnectionPtr& connection, bool isBarWanted,
                         Context& context);

/// "1,234,567" by the regional settings.
std::string countText(std::int64_t number, Context& context);

}  // namespace qvn::cli
