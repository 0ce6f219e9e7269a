// One named value.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "qvn/base/variant.h"

namespace qvn::rowtext {

/// Holds data and nothing else.
class WsField final : public Object {
 public:
  Variant value;
  std::string Key;
};
using WsFieldPtr = std::shared_ptr<WsField>;

/// A field with this name and a copy of this value.
WsFieldPtr newData(std::string_view strKey, const Variant& uData);

}  // namespace qvn::rowtext
