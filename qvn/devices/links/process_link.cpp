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

DeviceLinkPtr deviceLink() {
  DeviceLinkPtr& link = processLink();
  const char* library = std::getenv("QVN_RAPI");
  if (!link && library != nullptr && *library != '\0') link = std::make_shared<RapiLink>(library);
  return link;
}

void setDeviceLink(DeviceLinkPtr link) { processLink() = std::move(link); }

}  // namespace qvn::devices
