// The names that a device path is made of.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvn::devices {

struct DevicePath {
  std::vector<std::string> folders;
  std::string name;  ///< the last one
};

/// Reads "\" and "/" alike, leaves out what is empty or ".", and begins at the device's root in any case. Nothing when
/// no name is left, when one is "..", or when it holds a NUL.
std::optional<DevicePath> readDevicePath(std::u16string_view path);

}  // namespace qvn::devices
