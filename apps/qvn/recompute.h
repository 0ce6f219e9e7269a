// Recomputing rows named on the command line one after the other, as `saldo` and `por-aplicar` do.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "apps/qvn/command.h"
#include "apps/qvn/table_writer.h"
#include "qvn/data/recordset.h"

namespace qvn::cli {

struct Recomputation {
  std::string_view noun;     ///< with its article, as "el documento"
  std::string_view table;    ///< where it is looked for
  std::string_view balance;  ///< the field that is shown as it was before
  std::function<data::RecordsetPtr(std::int64_t)> read;
  std::function<void(std::int64_t)> run;
};

/// A row that was there before it was recomputed.
struct Recomputed {
  std::int64_t number;
  Cell balanceBefore;
};

/// Runs it for each number. One that does not exist is reported in `context.messages` and left out; when one fails,
/// that those before it stay written is reported before the error goes on.
std::vector<Recomputed> recomputeEach(const std::vector<std::int64_t>& numbers, const Recomputation& recomputation,
                                      Context& context);

}  // namespace qvn::cli
