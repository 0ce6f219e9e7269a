#include "qvn/mysqladmin/backup_report.h"

#include <algorithm>

namespace qvn::mysqladmin {

void BackupReport::skip(std::string_view table, std::string_view step, const RuntimeError& error) {
  // Those of one table stand together at the end.
  const auto known = std::find_if(skipped.rbegin(), skipped.rend(), [&](const SkippedStep& before) {
    return before.table != table || before.step == step;
  });
  const bool isKnown = known != skipped.rend() && known->table == table;
  SkippedStep& noted = isKnown ? *known : skipped.emplace_back();
  noted.table = table;
  noted.step = step;
  ++noted.times;
  noted.number = error.number();
  noted.reason = error.description();
}

bool BackupReport::isComplete() const {
  return !wasInterrupted && std::ranges::all_of(skipped, [](const SkippedStep& step) {
    return step.number == error_number::kInvalidUseOfNull;
  });
}

}  // namespace qvn::mysqladmin
