#include "qvn/ledger/document_balance.h"

#include <cmath>

#include "qvn/text/decimal_text.h"
#include "qvn/text/padding.h"

namespace qvn::ledger {
namespace {

double amountOf(const Variant& sum, SumRounding rounding) {
  const double amount = text::Val2(text::cNull(sum));
  return rounding == SumRounding::None ? amount : std::nearbyint(amount * 100) / 100;
}

}  // namespace

DocumentBalance documentBalance(const Variant& charges, const Variant& credits, SumRounding rounding) {
  return {amountOf(charges, rounding) - amountOf(credits, rounding)};
}

}  // namespace qvn::ledger
