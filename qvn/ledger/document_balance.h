// The balance of one document from the engine's sums over its movements.
#pragma once

#include "qvn/base/variant.h"

namespace qvn::ledger {

enum class SumRounding {
  ToCents,  ///< each sum half to even on its value times 100, as for customers
  None,     ///< as for suppliers
};

struct DocumentBalance {
  double amount = 0;

  /// Exactly zero; where sums are rounded first, that is zero to the cent.
  [[nodiscard]] bool isSettled() const { return amount == 0.0; }
};

/// Charges less credits; a sum over no movements is Null and counts as 0.
DocumentBalance documentBalance(const Variant& charges, const Variant& credits, SumRounding rounding);

}  // namespace qvn::ledger
