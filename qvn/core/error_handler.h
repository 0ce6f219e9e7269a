// What a host does with an error that it trapped: show it, and keep it in the log of the day.
#pragma once

#include <cstdint>
#include <string_view>

#include "qvn/base/clock.h"
#include "qvn/data/recordset.h"
#include "qvn/dialogs/dialogs.h"
#include "qvn/host/ambiente.h"

namespace qvn::core {

/// Shows an error, and appends it to the log once the person has seen it. True, also when the log could not be written;
/// False for a lost connection (number -2147467259), which is shown with a text of its own and not logged.
///
/// The log is the file "\QuorvinErrorddMMyyyy.Log" of the environment's log folder, with the date of the end of the
/// dialog; folder and name are joined as they are. A record has four lines, each ended by CR LF: the time before the
/// dialog in 24 hours, the module, the procedure, the description; a blank line follows. Stations may write to one
/// folder at the same time.
///
/// @throws RuntimeError  91 when there is no environment, after the error was shown
bool Err_Handler(const host::AmbientePtr& Ambiente, std::string_view ModuleName, std::string_view ProcName,
                 std::string_view ErrorDesc, std::int32_t errNumber, dialogs::Dialogs& dialogs, Clock& clock);

/// Saves the current row (`Update`). A failure is shown in a box with the information icon and not raised: what the
/// provider reported, or that another user holds the row.
///
/// @throws RuntimeError  91 when there is no recordset
void Agregar(const data::RecordsetPtr& rst, host::MessageBox& messages);

}  // namespace qvn::core
