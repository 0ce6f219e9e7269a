#include "qvn/data/property_bag.h"

#include "qvn/base/letter_case.h"

namespace qvn::data {

const Variant& PropertyBag::get(std::string_view name) const {
  static const Variant kEmpty;
  for (const auto& [known, value] : properties_) {
    if (equalIgnoringCase(known, name)) return value;
  }
  return kEmpty;
}

void PropertyBag::set(std::string_view name, Variant value) {
  for (auto& [known, held] : properties_) {
    if (equalIgnoringCase(known, name)) {
      held = std::move(value);
      return;
    }
  }
  properties_.emplace_back(name, std::move(value));
}

}  // namespace qvn::data
