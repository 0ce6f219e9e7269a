#include "qvn/dialogs/default_dialogs.h"

#include "qvn/dialogs/terminal_dialogs.h"

namespace qvn::dialogs {
namespace {

DialogsMaker& registered() {
  static DialogsMaker maker = nullptr;
  return maker;
}

}  // namespace

void registerDialogs(DialogsMaker maker) { registered() = maker; }

DialogsPtr defaultDialogs() {
  DialogsPtr windows = registered() == nullptr ? nullptr : registered()();
  return windows ? windows : terminalDialogs();
}

}  // namespace qvn::dialogs
