// Laying out a value by a pattern.
#pragma once

#include "qvn/base/variant.h"

namespace qvn::text {

/// `Var` laid out by the pattern `strFormat`, as formatValue does it; always a text. The week begins on Sunday, and the
/// first week of a year is the one that holds 1 January.
/// Throws RuntimeError 94 when `strFormat` is Null and 13 for arrays and objects.
Variant Formato(const Variant& Var, const Variant& strFormat);

}  // namespace qvn::text
