// An input control of the host beside a text or value for it.
#pragma once

#include <memory>

#include "qvn/base/variant.h"

namespace qvn::rowtext {

struct TextData final : Object {
  ObjectPtr Control;
  Variant Text;
};

/// Without control and text.
inline std::shared_ptr<TextData> NewTextData() { return std::make_shared<TextData>(); }

}  // namespace qvn::rowtext
