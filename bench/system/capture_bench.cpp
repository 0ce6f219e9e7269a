// Captured output of a command beside a raw loop that reads the same command's pipe in pieces of 256 bytes and keeps
// them in a string, or appends each to a file that it opens and closes for it, so that others may take the file away.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench/support/peer_report.h"
#include "qvn/system/dos_outputs.h"

namespace qvn::bench {
namespace {

constexpr std::int64_t kBytes = 16 << 20;
const std::string kCommand = "head -c " + std::to_string(kBytes) + " /dev/zero";

// Gives each piece of the command's output to `take`.
template <typename Take>
void readRaw(Take take) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) std::abort();
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  std::string count = std::to_string(kBytes);
  std::array<std::string, 4> words = {"head", "-c", count, "/dev/zero"};
  std::array<char*, 5> arguments = {words[0].data(), words[1].data(), words[2].data(), words[3].data(), nullptr};
  pid_t child = 0;
  if (posix_spawnp(&child, "head", &actions, nullptr, arguments.data(), environ) != 0) std::abort();
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  std::array<char, 256> buffer{};
  for (ssize_t size = read(ends[0], buffer.data(), buffer.size()); size > 0;
       size = read(ends[0], buffer.data(), buffer.size())) {
    take(buffer.data(), static_cast<std::size_t>(size));
  }
  close(ends[0]);
  waitpid(child, nullptr, 0);
}

void capture(benchmark::State& state) {
  system::DOSOutputs console(nullptr);
  for (auto _ : state) benchmark::DoNotOptimize(console.ExecuteCommand(kCommand));
  state.SetBytesProcessed(state.iterations() * kBytes);
}

void captureRaw(benchmark::State& state) {
  for (auto _ : state) {
    std::string all;
    readRaw([&](const char* piece, std::size_t size) { all.append(piece, size); });
    benchmark::DoNotOptimize(all);
  }
  state.SetBytesProcessed(state.iterations() * kBytes);
}

std::string emptyFile() {
  std::string name = "/tmp/qvn_bench_XXXXXX";
  const int file = mkstemp(name.data());
  if (file < 0) std::abort();
  close(file);
  return name;
}

void toFile(benchmark::State& state) {
  const std::string name = emptyFile();
  system::DOSOutputs console(nullptr);
  std::string error;
  for (auto _ : state) {
    if (truncate(name.c_str(), 0) != 0) std::abort();
    console.ExecuteToFile(kCommand, name, error);
  }
  std::remove(name.c_str());
  state.SetBytesProcessed(state.iterations() * kBytes);
}

void toFileRaw(benchmark::State& state) {
  const std::string name = emptyFile();
  for (auto _ : state) {
    if (truncate(name.c_str(), 0) != 0) std::abort();
    readRaw([&](const char* piece, std::size_t size) {
      std::array<char, 258> line{};
      std::copy_n(piece, size, line.data());
      line[size] = '\r';
      line[size + 1] = '\n';
      const int file = open(name.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
      if (write(file, line.data(), size + 2) < 0) std::abort();
      close(file);
    });
  }
  std::remove(name.c_str());
  state.SetBytesProcessed(state.iterations() * kBytes);
}

}  // namespace
}  // namespace qvn::bench

int main(int argc, char** argv) {
  using namespace qvn::bench;
  const auto add = [](const char* name, void (*turn)(benchmark::State&)) {
    benchmark::RegisterBenchmark(name, turn)->Unit(benchmark::kMillisecond)->UseRealTime();
  };
  add("capture/qvn", capture);
  add("capture/raw", captureRaw);
  add("capture_to_file/qvn", toFile);
  add("capture_to_file/raw", toFileRaw);
  return runBesidePeers(argc, argv);
}
