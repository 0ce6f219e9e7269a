#include "apps/qvn/recompute.h"

#include "apps/qvn/field_text.h"

namespace qvn::cli {

std::vector<Recomputed> recomputeEach(const std::vector<std::int64_t>& numbers, const Recomputation& recomputation,
                                      Context& context) {
  std::vector<Recomputed> done;
  for (const std::int64_t number : numbers) {
    const auto before = recomputation.read(number);
    if (before->Eof()) {
      context.messages << "qvn: no existe " << recomputation.noun << " " << std::to_string(number) << " en «"
                       << recomputation.table << "»\n";
      continue;
    }
    done.push_back({number, amountCell(before->Fields(recomputation.balance).Value())});
    try {
      recomputation.run(number);
    } catch (const RuntimeError&) {
      context.messages << "qvn: falló " << recomputation.noun << " " << std::to_string(number)
                       << "; los anteriores quedaron escritos\n";
      throw;
    }
  }
  return done;
}

}  // namespace qvn::cli
