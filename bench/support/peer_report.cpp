#include "bench/support/peer_report.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace qvn::bench {
namespace {

constexpr const char* kSubject = "qvn";

// Collects every repetition's real time by group and by who ran it.
class PeerReporter final : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
      const std::string& name = run.run_name.function_name;
      const std::size_t slash = name.find('/');
      times_[name.substr(0, slash)][name.substr(slash + 1)].push_back(run.GetAdjustedRealTime());
    }
  }

  // Speed is the peer's time over ours. The fastest turns tell it with the least of what else the machine did.
  void printRatios() {
    std::printf("\n%-34s %-6s %12s %12s %8s %14s\n", "group", "peer", "peer median", "qvn median", "speed",
                "fastest turns");
    for (auto& [group, byName] : times_) {
      const Times own = summarize(byName[kSubject]);
      for (auto& [name, times] : byName) {
        if (name == kSubject) continue;
        const Times peer = summarize(times);
        std::printf("%-34s %-6s %12.1f %12.1f %7.2fx %13.2fx\n", group.c_str(), name.c_str(), peer.median, own.median,
                    peer.median / own.median, peer.fastest / own.fastest);
      }
    }
  }

 private:
  struct Times {
    double median = 0;
    double fastest = 0;
  };
  static Times summarize(std::vector<double>& times) {
    if (times.empty()) return {};
    std::sort(times.begin(), times.end());
    return {times[times.size() / 2], times.front()};
  }
  std::map<std::string, std::map<std::string, std::vector<double>>> times_;
};

}  // namespace

int runBesidePeers(int argc, char** argv) {
  std::string repetitions = "--benchmark_repetitions=5";
  std::string interleaving = "--benchmark_enable_random_interleaving=true";
  std::vector<char*> arguments{argv[0], repetitions.data(), interleaving.data()};
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 1;
  PeerReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.printRatios();
  return 0;
}

}  // namespace qvn::bench
