// What the calls of one host in another language share.
#pragma once

#include "qvn/automation/conversation.h"
#include "qvn/automation/object_table.h"
#include "qvn/dialogs/dialogs.h"
#include "qvn/lumlibreria.h"

namespace qvn::automation {

struct Session {
  ObjectTable& objects;
  Conversation& conversation;
  dialogs::DialogsPtr dialogs;
  const LumLibreria& library;
};

/// {"event":"...","object":7}
Json objectEvent(std::string_view name, const Object& object, const Session& session);

}  // namespace qvn::automation
