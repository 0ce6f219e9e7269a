// ShellSortAny on up to a million numbers and texts, with the exponent of its growth, beside a stable sort by the same
// comparison.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <string>

#include "bench/text/growth_reporter.h"
#include "qvn/base/random.h"
#include "qvn/text/shell_sort.h"

namespace qvn::bench {
namespace {

Array mixedItems(std::int64_t count) {
  const RandomPtr random = pseudoRandom(7);
  Array array;
  array.items.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) {
    const auto number = static_cast<std::int32_t>(random->next() * 1e9);
    array.items.push_back(i % 2 == 0 ? Variant(number) : Variant(std::to_string(number)));
  }
  return array;
}

void ShellSortAny(benchmark::State& state) {
  const Variant items = mixedItems(state.range(0));
  for (auto _ : state) {
    Variant array = items;
    text::ShellSortAny(array);
    benchmark::DoNotOptimize(array);
  }
  state.SetComplexityN(state.range(0));
}

void ShellSortAny_peer_stable_sort(benchmark::State& state) {
  const Array items = mixedItems(state.range(0));
  for (auto _ : state) {
    Array array = items;
    std::ranges::stable_sort(array.items, [](const Variant& left, const Variant& right) {
      return compare(left, right) == std::weak_ordering::less;
    });
    benchmark::DoNotOptimize(array);
  }
  state.SetComplexityN(state.range(0));
}

void add(const char* name, void (*body)(benchmark::State&)) {
  benchmark::RegisterBenchmark(name, body)
      ->RangeMultiplier(10)
      ->Range(1000, 1'000'000)
      ->Complexity()
      ->Unit(benchmark::kMillisecond);
}

}  // namespace
}  // namespace qvn::bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  qvn::bench::add("ShellSortAny", qvn::bench::ShellSortAny);
  qvn::bench::add("ShellSortAny_peer_stable_sort", qvn::bench::ShellSortAny_peer_stable_sort);
  qvn::bench::GrowthReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}
