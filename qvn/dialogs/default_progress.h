// What shows the progress of a host that chose nothing else.
#pragma once

#include "qvn/dialogs/progress_view.h"

namespace qvn::dialogs {

/// Makes a view for the process as it is; null when it cannot, as when there is no display.
using ProgressViewMaker = ProgressViewPtr (*)();

/// Asked first from now on. Adapters of windows register themselves when a host links them.
void registerProgressView(ProgressViewMaker maker);

/// What the registered maker gives, else a line on the terminal.
ProgressViewPtr defaultProgressView();

}  // namespace qvn::dialogs
