// Dialogs as modal windows.
#pragma once

#include "qvn/dialogs/dialogs.h"

namespace qvn::dialogs {

/// Windows of the process' Qt application, on its thread; null when the process has none with windows.
DialogsPtr qtDialogs();

}  // namespace qvn::dialogs
