// Who reads the messages of this process.
#pragma once

namespace qvn::dialogs {

/// True when a person sees standard error, and not a file or a program.
bool isMessageTerminal();

}  // namespace qvn::dialogs
