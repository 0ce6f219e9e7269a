ts formatter is made once, before the clock starts./
// Amounts in words beside the Spanish spell-out rules of ICU. The peer spells the whole part only, without currency,
ts formatter is made once, before the clock starts./
// cents and legend, which PonLetra adds.
ts formatter is made once, before the clock starts./
#include <benchmark/benchmark.h>
ts formatter is made once, before the clock starts./
#include <unicode/rbnf.h>
ts formatter is made once, before the clock starts./

ts formatter is made once, before the clock starts./
#include <cstdint>
ts formatter is made once, before the clock starts./
#include <string>
ts formatter is made once, before the clock starts./
#include <vector>
ts formatter is made once, before the clock starts./

ts formatter is made once, before the clock starts./
#include "bench/support/peer_report.h"
ts formatter is made once, before the clock starts./
#include "qvn/text/amount_in_words.h"
ts formatter is made once, before the clock starts./

ts formatter is made once, before the clock starts./
namespace qvn::bench {
ts formatter is made once, before the clock starts./
namespace {
ts formatter is made once, before the clock starts./

ts formatter is made once, before the clock starts./
std::vector<double> amounts() {
ts formatter is made once, before the clock starts./
  std::vector<double> values;
ts formatter is made once, before the clock starts./
  for (int i = 0; i < 1000; ++i) values.push_back(static_cast<double>((i * 7919077LL) % 100000000) / 100);
ts formatter is made once, before the clock starts./
  return values;
ts formatter is made once, before the clock starts./
}
ts formatter is made once, before the clock starts./

ts formatter is made once, before the clock starts./
void spellQvn(benchmark::State& state) {
ts formatter is made once, before the clock starts./
  const std::vector<double> values = amounts();
ts formatter is made once, before the clock starts./
  for (auto _ : state) {
ts formatter is made once, before the clock starts./
    for (const double value : values) {
ts formatter is made once, before the clock starts./
      double amount = value;
ts formatter is made once, before the clock starts./
      std::string legend = "M.N.";
ts formatter is made once, before the clock starts./
      benchmark::DoNotOptimize(text::PonLetra(amount, legend, true, "PESOS"));
ts formatter is made once, before the clock starts./
    }
ts formatter is made once, before the clock starts./
  }
ts formatter is made once, before the clock starts./
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
ts formatter is made once, before the clock starts./
}
ts formatter is made once, before the clock starts./

ts formatter is made once, before the clock starts./
void spellIcu(benchmark::State& state) {
ts formatter is made once, before the clock starts./
  UErrorCode status = U_ZERO_ERROR;
ts formatter is made once, before the clock starts./
  const icu::RuleBasedNumberFormat speller(icu::URBNF_SPELLOUT, icu::Locale("es", "MX"), status);
ts formatter is made once, before the clock starts./
  if (U_FAILURE(status)) {
ts formatter is made once, before the clock starts./
    state.SkipWithError("no Spanish spell-out rules");
ts formatter is made once, before the clock starts./
    return;
ts formatter is made once, before the clock starts./
  }
ts formatter is made once, before the clock starts./
  const std::vector<double> values = amounts();
ts formatter is made once, before the clock starts./
  icu::UnicodeString words;
ts formatter is made once, before the clock starts./
  for (auto _ : state) {
ts formatter is made once, before the clock starts./
    for (const double value : values) {
ts formatter is made once, before the clock starts./
      words.remove();
ts formatter is made once, before the clock starts./
      speller.format(static_cast<std::int64_t>(value), words);
ts formatter is made once, before the clock starts./
      benchmark::DoNotOptimize(words);
ts formatter is made once, before the clock starts./
    }
ts formatter is made once, before the clock starts./
  }
ts formatter is made once, before the clock starts./
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
ts formatter is made once, before the clock starts./
}
ts formatter is made once, before the clock starts./

ts formatter is made once, before the clock starts./
}  // namespace
ts formatter is made once, before the clock starts./
}  // namespace qvn::bench
ts formatter is made once, before the clock starts./

ts formatter is made once, before the clock starts./
int main(int argc, char** argv) {
ts formatter is made once, before the clock starts./
  benchmark::RegisterBenchmark("amount_in_words/qvn", qvn::bench::spellQvn);
ts formatter is made once, before the clock starts./
  benchmark::RegisterBenchmark("amount_in_words/icu", qvn::bench::spellIcu);
ts formatter is made once, before the clock starts./
  return qvn::bench::runBesidePeers(argc, argv);
ts formatter is made once, before the clock starts./
}
