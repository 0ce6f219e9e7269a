// Named settings, in the order in which they were first set.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "qvn/base/variant.h"

namespace qvn::data {

class PropertyBag {
 public:
  /// Value of a property, whose name is compared without regard to case; Empty when it was never set.
  [[nodiscard]] const Variant& get(std::string_view name) const;
  void set(std::string_view name, Variant value);

 private:
  std::vector<std::pair<std::string, Variant>> properties_;
};

}  // namespace qvn::data
