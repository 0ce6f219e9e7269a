#include "qvn/devices/wildcard.h"

#include <cstddef>

namespace qvn::devices {

bool matchesWildcard(std::u16string_view name, std::u16string_view pattern) {
  if (pattern == u"*.*") return true;
  // Where the last "*" stands and up to where it reaches; it takes one unit more each time the rest does not fit.
  std::size_t star = std::u16string_view::npos;
  std::size_t reach = 0;
  std::size_t p = 0;
  for (std::size_t n = 0; n < name.size();) {
    if (p < pattern.size() && pattern[p] == u'*') {
      star = p++;
      reach = n;
    } else if (p < pattern.size() && (pattern[p] == u'?' || pattern[p] == name[n])) {
      ++p;
      ++n;
    } else if (star != std::u16string_view::npos) {
      p = star + 1;
      n = ++reach;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of(u'*', p) == std::u16string_view::npos;
}

}  // namespace qvn::devices
