#include "qvn/devices/links/process_link.h"

#include <cstdlib>
#include <utility>

#include "qvn/devices/rapi/rapi_link.h"

namespace qvn::devices {
namespace {

DeviceLinkPtr& processLink() {
  static DeviceLinkPtr link;
  return link;
}

}  // namespace

std::optional<std::string> configuredLibrary() {
  const char* library = std::getenv("QVN_RAPI");
  return library == nullptr || *library == '\0' ? std::nullopt : std::optional<std::string>(library);
}

DeviceLinkPtr deviceLink() {
  DeviceLinkPtr& link = processLink();
  if (link) return link;
  if (const auto library = configuredLibrary()) link = std::make_shared<RapiLink>(*library);
  return link;
}

void setDeviceLink(DeviceLinkPtr link) { processLink() = std::move(link); }

}  // namespace qvn::devices
