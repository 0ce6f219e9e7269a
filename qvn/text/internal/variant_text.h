// The text of a Variant, without a copy when it holds text already.
#pragma once

#include <string>
#include <string_view>

#include "qvn/base/variant.h"

namespace qvn::text::internal {

/// Must not outlive the Variant. The constructor throws as Variant::toText does.
class VariantText {
 public:
  explicit VariantText(const Variant& value)
      : converted_(value.isText() ? std::string() : value.toText()),
        view_(value.isText() ? std::string_view(*value.getIf<std::string>()) : std::string_view(converted_)) {}
  VariantText(const VariantText&) = delete;
  VariantText& operator=(const VariantText&) = delete;

  [[nodiscard]] std::string_view view() const { return view_; }

 private:
  std::string converted_;
  std::string_view view_;
};

}  // namespace qvn::text::internal
