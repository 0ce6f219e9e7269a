// Recomputing the balances of documents named on the command line, receivable or payable, and showing them before and
// after.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "apps/qvn/command.h"
#include "qvn/host/ambiente.h"

namespace qvn::cli {

/// Where the documents of one side stand. The key of a document is named as its table.
struct DocumentSide {
  std::string_view documents;   ///< table
  std::string_view party;       ///< the field with the customer or supplier, in both tables
  std::string_view parties;     ///< table
  std::string_view totalTitle;  ///< of the column with the party's total
};

/// One method of the library, on one document.
using RecomputeDocument = std::function<void(std::int64_t number, const host::AmbientePtr& ambiente)>;

/// Runs the method on each operand and shows what became of the documents that exist; Failed when one does not. Throws
/// UsageError, and what the method throws.
ExitStatus recomputeDocuments(const DocumentSide& side, const RecomputeDocument& recompute, const Arguments& arguments,
                              Context& context);

}  // namespace qvn::cli
