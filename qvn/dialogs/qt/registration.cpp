// A library without dialogs of its own asks for windows first.
#include "qvn/dialogs/default_dialogs.h"
#include "qvn/dialogs/qt/qt_dialogs.h"

namespace {

[[maybe_unused]] const bool kIsRegistered = (qvn::dialogs::registerDialogs(&qvn::dialogs::qtDialogs), true);

}  // namespace
