// Amounts in words beside the Spanish spell-out rules of ICU. The peer spells the whole part only, without currency,
// cents and legend, which PonLetra adds; its formatter is made before the clock starts.
#include <benchmark/benchmark.h>
#include <unicode/rbnf.h>

#include <cstdint>
#include <string>
#include <vector>

#include "bench/support/peer_report.h"
#include "qvn/text/amount_in_words.h"

namespace qvn::bench {
namespace {

std::vector<double> amounts() {
  std::vector<double> values;
  for (int i = 0; i < 1000; ++i) values.push_back(static_cast<double>((i * 7919077LL) % 100000000) / 100);
  return values;
}

void spellQvn(benchmark::State& state) {
  const std::vector<double> values = amounts();
  for (auto _ : state) {
    for (const double value : values) {
      double amount = value;
      std::string legend = "M.N.";
      benchmark::DoNotOptimize(text::PonLetra(amount, legend, true, "PESOS"));
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}

void spellIcu(benchmark::State& state) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::RuleBasedNumberFormat speller(icu::URBNF_SPELLOUT, icu::Locale("es", "MX"), status);
  if (U_FAILURE(status)) {
    state.SkipWithError("no Spanish spell-out rules");
    return;
  }
  const std::vector<double> values = amounts();
  icu::UnicodeString words;
  for (auto _ : state) {
    for (const double value : values) {
      words.remove();
      speller.format(static_cast<std::int64_t>(value), words);
      benchmark::DoNotOptimize(words);
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}

}  // namespace
}  // namespace qvn::bench

int main(int argc, char** argv) {
  benchmark::RegisterBenchmark("amount_in_words/qvn", qvn::bench::spellQvn);
  benchmark::RegisterBenchmark("amount_in_words/icu", qvn::bench::spellIcu);
  return qvn::bench::runBesidePeers(argc, argv);
}
