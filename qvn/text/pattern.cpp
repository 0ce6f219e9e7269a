#include "qvn/text/pattern.h"

#include "qvn/base/format_pattern.h"
#include "qvn/text/internal/variant_text.h"

namespace qvn::text {

Variant Formato(const Variant& Var, const Variant& strFormat) {
  return formatValue(Var, internal::VariantText(strFormat).view());
}

}  // namespace qvn::text
