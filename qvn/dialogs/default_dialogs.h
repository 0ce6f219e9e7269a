// The dialogs of a library that was given none.
#pragma once

#include "qvn/dialogs/dialogs.h"

namespace qvn::dialogs {

/// Makes dialogs for the process as it is; null when it cannot, as when there is no display.
using DialogsMaker = DialogsPtr (*)();

/// Asked first from now on. Adapters of windows register themselves when a host links them.
void registerDialogs(DialogsMaker maker);

/// What the registered maker gives, else the terminal.
DialogsPtr defaultDialogs();

}  // namespace qvn::dialogs
