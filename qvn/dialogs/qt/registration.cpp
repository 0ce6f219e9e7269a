// A library without dialogs of its own asks for windows first, and so does progress.
#include "qvn/dialogs/default_dialogs.h"
#include "qvn/dialogs/default_progress.h"
#include "qvn/dialogs/qt/qt_dialogs.h"
#include "qvn/dialogs/qt/qt_progress.h"

namespace {

[[maybe_unused]] const bool kIsRegistered = (qvn::dialogs::registerDialogs(&qvn::dialogs::qtDialogs),
                                             qvn::dialogs::registerProgressView(&qvn::dialogs::qtProgress), true);

}  // namespace
