#include "qvn/devices/folder/device_path.h"

#include <algorithm>

#include "qvn/devices/wide_text.h"

namespace qvn::devices {

std::optional<DevicePath> readDevicePath(std::u16string_view path) {
  constexpr std::u16string_view kSeparators = u"\\/";
  if (path.find(u'\0') != std::u16string_view::npos) return std::nullopt;
  DevicePath read;
  for (std::size_t begin = 0; begin < path.size();) {
    const std::size_t end = std::min(path.find_first_of(kSeparators, begin), path.size());
    const std::u16string_view name = path.substr(begin, end - begin);
    begin = end + 1;
    if (name == u"..") return std::nullopt;
    if (!name.empty() && name != u".") read.folders.push_back(fromWide(name));
  }
  if (read.folders.empty()) return std::nullopt;
  read.name = std::move(read.folders.back());
  read.folders.pop_back();
  return read;
}

}  // namespace qvn::devices
