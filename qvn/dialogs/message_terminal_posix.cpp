#include <unistd.h>

#include "qvn/dialogs/message_terminal.h"

namespace qvn::dialogs {

bool isMessageTerminal() { return isatty(STDERR_FILENO) == 1; }

}  // namespace qvn::dialogs
