// Repair of a MyISAM table whose index is damaged.
#pragma once

#include <string>
#include <string_view>

#include "qvn/base/clock.h"
#include "qvn/data/connection.h"
#include "qvn/dialogs/dialogs.h"

namespace qvn::mysqladmin {

enum class RepairOutcome {
  Repaired,
  UnderWay,          ///< another station repairs it; nothing was done
  NeedsOfflineTool,  ///< ANALYZE TABLE reports an error
};

/// Repairs the table that an error of the engine names, unless the host's table `reparando` says that another station
/// is doing so. A progress dialog shows "Reparando: " with the table's name and then what ANALYZE TABLE says of it;
/// when that is an error, that the table needs myisamchk. The row of the table in `reparando` is made with 1 when there
/// is none; afterwards it holds 0 and the moments between which the table was repaired. A damaged `reparando` is
/// repaired first.
///
/// @param text        the engine's words, such as "Index for table './shop/clients.MYI' is corrupt; try to repair it";
///                    words without ".MYI" name no table, and the statements then fail
/// @param Connection  open on the server; the session's database holds both tables
/// @throws ProviderError  a statement failed; the row of `reparando` then still holds 1
RepairOutcome ReparaTabla(std::string_view text, const data::ConnectionPtr& Connection, dialogs::Dialogs& dialogs,
                          Clock& clock);

/// The name of the table whose index file an error names; "" when it names none.
std::string damagedTable(std::string_view text);

}  // namespace qvn::mysqladmin
