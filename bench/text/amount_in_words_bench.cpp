// Amounts in words beside the Spanish spell-out rules of ICU. "icu" and "icu_made_anew" spell the whole part only;
// "icu_whole_text" gives all that PonLetra gives, capitals, currency, cents and legend in UTF-8. "icu" and
// "icu_whole_text" keep their formatter, made before the clock starts; "icu_made_anew" keeps nothing between two
// amounts, as PonLetra does.
#include <benchmark/benchmark.h>
#include <unicode/rbnf.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
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

icu::RuleBasedNumberFormat spanishSpeller() {
  UErrorCode status = U_ZERO_ERROR;
  icu::RuleBasedNumberFormat speller(icu::URBNF_SPELLOUT, icu::Locale("es", "MX"), status);
  if (U_FAILURE(status)) throw std::runtime_error("no Spanish spell-out rules");
  return speller;
}

void spellIcuMadeAnew(benchmark::State& state) {
  const std::vector<double> values = amounts();
  std::size_t next = 0;
  for (auto _ : state) {
    icu::UnicodeString words;
    spanishSpeller().format(static_cast<std::int64_t>(values[next]), words);
    benchmark::DoNotOptimize(words);
    next = (next + 1) % values.size();
  }
  state.SetItemsProcessed(state.iterations());
}

void spellQvnOnce(benchmark::State& state) {
  const std::vector<double> values = amounts();
  std::size_t next = 0;
  for (auto _ : state) {
    double amount = values[next];
    std::string legend = "M.N.";
    benchmark::DoNotOptimize(text::PonLetra(amount, legend, true, "PESOS"));
    next = (next + 1) % values.size();
  }
  state.SetItemsProcessed(state.iterations());
}

void spellIcu(benchmark::State& state) {
  const icu::RuleBasedNumberFormat speller = spanishSpeller();
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

std::string wholeText(const icu::RuleBasedNumberFormat& speller, double amount, const std::string& legend) {
  const auto whole = static_cast<std::int64_t>(amount);
  const auto cents = static_cast<int>(std::nearbyint((amount - static_cast<double>(whole)) * 100));
  icu::UnicodeString words;
  speller.format(whole, words);
  words.toUpper(icu::Locale("es", "MX"));
  std::string text;
  words.toUTF8String(text);
  text.append(" PESOS ").append(cents < 10 ? "0" : "").append(std::to_string(cents)).append(" /100 ").append(legend);
  return text;
}

void spellIcuWholeText(benchmark::State& state) {
  const icu::RuleBasedNumberFormat speller = spanishSpeller();
  const std::vector<double> values = amounts();
  for (auto _ : state) {
    for (const double value : values) benchmark::DoNotOptimize(wholeText(speller, value, "M.N."));
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}

}  // namespace
}  // namespace qvn::bench

int main(int argc, char** argv) {
  benchmark::RegisterBenchmark("amount_in_words/qvn", qvn::bench::spellQvn);
  benchmark::RegisterBenchmark("amount_in_words/icu", qvn::bench::spellIcu);
  benchmark::RegisterBenchmark("amount_in_words/icu_whole_text", qvn::bench::spellIcuWholeText);
  benchmark::RegisterBenchmark("one_amount/qvn", qvn::bench::spellQvnOnce);
  benchmark::RegisterBenchmark("one_amount/icu_made_anew", qvn::bench::spellIcuMadeAnew);
  return qvn::bench::runBesidePeers(argc, argv);
}
