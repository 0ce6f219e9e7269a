// The text functions on 1 KB to 10 MB of input, each beside what a program would do without them. The names of the
// peers say what they are; they are less strict (no letters beyond ASCII, no caller's array, no general number).
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

#include "bench/text/growth_reporter.h"
#include "qvn/text/decimal_text.h"
#include "qvn/text/replace.h"
#include "qvn/text/search.h"
#include "qvn/text/split.h"

namespace qvn::bench {
namespace {

constexpr std::int64_t kSmallest = 1 << 10;
constexpr std::int64_t kLargest = 10 << 20;
constexpr std::int64_t kLargestQuadratic = 64 << 10;

std::string repeated(std::string_view unit, benchmark::State& state) {
  const auto size = static_cast<std::size_t>(state.range(0));
  std::string text;
  text.reserve(size + unit.size());
  while (text.size() < size) text.append(unit);
  return text;
}

std::string articles(benchmark::State& state) { return repeated("Tornillo galvanizado 1/4,12.50,PZA,,", state); }

void finish(benchmark::State& state) {
  state.SetBytesProcessed(state.iterations() * state.range(0));
  state.SetComplexityN(state.range(0));
}

std::vector<double> amounts(benchmark::State& state) {
  std::vector<double> values;  // of about ten characters each
  for (std::int64_t i = 0; i < state.range(0) / 10; ++i)
    values.push_back(static_cast<double>(i % 99991 + 1000000) / 64);
  return values;
}

void FormatoDecimal(benchmark::State& state) {
  const std::vector<double> values = amounts(state);
  for (auto _ : state) {
    for (const double value : values) benchmark::DoNotOptimize(text::FormatoDecimal(value));
  }
  finish(state);
}

void FormatoDecimal_peer_snprintf(benchmark::State& state) {
  const std::vector<double> values = amounts(state);
  for (auto _ : state) {
    for (const double value : values) {
      char buffer[32];
      std::snprintf(buffer, sizeof buffer, "%.15g", value);
      benchmark::DoNotOptimize(std::string(buffer));
    }
  }
  finish(state);
}

std::vector<std::string> amountTexts(benchmark::State& state) {
  std::vector<std::string> texts;
  for (const double value : amounts(state)) texts.push_back(text::FormatoDecimal(value));
  return texts;
}

void Fn(benchmark::State& state) {
  const std::vector<std::string> texts = amountTexts(state);
  for (auto _ : state) {
    for (const std::string& text : texts) benchmark::DoNotOptimize(text::Fn(text));
  }
  finish(state);
}

void Fn_peer_strtod(benchmark::State& state) {
  const std::vector<std::string> texts = amountTexts(state);
  for (auto _ : state) {
    for (const std::string& text : texts) benchmark::DoNotOptimize(std::strtod(text.c_str(), nullptr));
  }
  finish(state);
}

void findAtTheEnd(benchmark::State& state, std::string text, const char* searched) {
  text += searched;
  const Variant value = searched;
  for (auto _ : state) benchmark::DoNotOptimize(text::clAt(value, text));
  finish(state);
}

void clAt(benchmark::State& state) { findAtTheEnd(state, articles(state), "MySQL"); }
void clAt_accented(benchmark::State& state) { findAtTheEnd(state, repeated("piñón y cañería, ", state), "MySQL"); }
void clAt_false_starts(benchmark::State& state) { findAtTheEnd(state, repeated("a", state), "aaaaaaaaaaaaaaab"); }

void strcasestrAtTheEnd(benchmark::State& state, std::string text, const char* searched) {
  text += searched;
  for (auto _ : state) benchmark::DoNotOptimize(strcasestr(text.c_str(), searched));
  finish(state);
}

void clAt_peer_strcasestr(benchmark::State& state) { strcasestrAtTheEnd(state, articles(state), "MySQL"); }
void clAt_false_starts_peer_strcasestr(benchmark::State& state) {
  strcasestrAtTheEnd(state, repeated("a", state), "aaaaaaaaaaaaaaab");
}

// The time must not depend on the length of what follows.
void clAt_early(benchmark::State& state) {
  const std::string text = "Provider=MySQL;" + articles(state);
  const Variant searched = "mysql";
  for (auto _ : state) benchmark::DoNotOptimize(text::clAt(searched, text));
  state.SetComplexityN(state.range(0));
}

void ReplaceString(benchmark::State& state) {
  const std::string text = articles(state);
  for (auto _ : state) benchmark::DoNotOptimize(text::ReplaceString(text, ",", "[&&,]"));
  finish(state);
}

void ReplaceString_peer_find_append(benchmark::State& state) {
  const std::string text = articles(state);
  for (auto _ : state) {
    std::string result;
    std::size_t done = 0;
    for (std::size_t at = 0; (at = text.find(',', done)) != std::string::npos; done = at + 1) {
      result.append(text, done, at - done).append("[&&,]");
    }
    benchmark::DoNotOptimize(result.append(text, done));
  }
  finish(state);
}

void Separador(benchmark::State& state) {
  const std::string text = articles(state);
  std::vector<std::string> list;
  for (auto _ : state) {
    std::string copy = text;
    benchmark::DoNotOptimize(text::Separador(",", copy, list));
  }
  finish(state);
}

void Separador_peer_getline(benchmark::State& state) {
  const std::string text = articles(state);
  std::vector<std::string> list;
  for (auto _ : state) {
    std::istringstream stream(text);
    list.clear();
    for (std::string item; std::getline(stream, item, ',');) list.push_back(item);
    benchmark::DoNotOptimize(list.data());
  }
  finish(state);
}

void change(benchmark::State& state, std::string_view inserted, std::string_view searched, const std::string& text) {
  for (auto _ : state) {
    std::string target = text;
    benchmark::DoNotOptimize(text::Cambia(inserted, searched, target));
  }
  finish(state);
}

void Cambia(benchmark::State& state) { change(state, ";", ",", articles(state)); }
void Cambia_blanks(benchmark::State& state) { change(state, " ", "  ", repeated("a      b ", state)); }

// "aaa...bbb...": each removal joins the next occurrence.
std::string nested(benchmark::State& state) {
  const auto half = static_cast<std::size_t>(state.range(0)) / 2;
  return std::string(half, 'a') + std::string(half, 'b');
}
void Cambia_nested(benchmark::State& state) { change(state, "", "ab", nested(state)); }

void Cambia_peer_repeated_Inserta(benchmark::State& state) {
  const std::string text = nested(state);
  for (auto _ : state) {
    std::string target = text;
    while (text::clAt("ab", target) > 0) target = text::Inserta("", "ab", target);
    benchmark::DoNotOptimize(target);
  }
  finish(state);
}

using Body = void (*)(benchmark::State&);

void add(const char* name, Body body, std::int64_t largest = kLargest) {
  benchmark::RegisterBenchmark(name, body)->RangeMultiplier(8)->Range(kSmallest, largest)->Complexity();
}

void addAll() {
  add("FormatoDecimal", FormatoDecimal);
  add("FormatoDecimal_peer_snprintf", FormatoDecimal_peer_snprintf);
  add("Fn", Fn);
  add("Fn_peer_strtod", Fn_peer_strtod);
  add("clAt", clAt);
  add("clAt_peer_strcasestr", clAt_peer_strcasestr);
  add("clAt_accented", clAt_accented);
  add("clAt_false_starts", clAt_false_starts);
  add("clAt_false_starts_peer_strcasestr", clAt_false_starts_peer_strcasestr);
  add("clAt_early", clAt_early);
  add("ReplaceString", ReplaceString);
  add("ReplaceString_peer_find_append", ReplaceString_peer_find_append);
  add("Separador", Separador);
  add("Separador_peer_getline", Separador_peer_getline);
  add("Cambia", Cambia);
  add("Cambia_blanks", Cambia_blanks);
  add("Cambia_nested", Cambia_nested);
  add("Cambia_peer_repeated_Inserta", Cambia_peer_repeated_Inserta, kLargestQuadratic);
}

}  // namespace
}  // namespace qvn::bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  qvn::bench::addAll();
  qvn::bench::GrowthReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}
