// Progress as a window.
#pragma once

#include "qvn/dialogs/progress_view.h"

namespace qvn::dialogs {

/// A window of the process' Qt application, on its thread; null when the process has none with windows.
ProgressViewPtr qtProgress();

}  // namespace qvn::dialogs
