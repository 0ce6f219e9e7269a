// The link to the handheld device of this process, whose session all objects share.
#pragma once

#include "qvn/devices/device_link.h"

namespace qvn::devices {

/// The remote access library that the environment variable QVN_RAPI names; nothing when it names none.
std::optional<std::string> configuredLibrary();

/// What setDeviceLink was given; before, a link by the configured library, which is loaded when the first session
/// begins. Null when neither is there.
DeviceLinkPtr deviceLink();

/// The link from now on; null leaves the choice to QVN_RAPI again. Objects that have another one keep it.
void setDeviceLink(DeviceLinkPtr link);

}  // namespace qvn::devices
