#include "qvn/automation/session.h"

namespace qvn::automation {

Json objectEvent(std::string_view name, const Object& object, const Session& session) {
  Json event = Json::object();
  event.add("event", name);
  event.add("object", session.objects.find(&object));
  return event;
}

}  // namespace qvn::automation
