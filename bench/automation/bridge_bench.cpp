// Calls per second through the bridge, beside "cat", which gives every line back unread: what pipes and processes cost
// without any work. One call at a time, and a thousand in blocks whose requests are sent before the answers are read.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/support/peer_report.h"

namespace qvn::bench {
namespace {

constexpr std::int64_t kSentAtOnce = 1000;
const std::string kRequest =
    R"({"id":1,"op":"ReplaceString","in":{"strSearch":"a-b","strSearchFor":"-","strReplaceWith":"+"}})"
    "\n";

// A program that answers each line with a line.
class LineProgram {
 public:
  explicit LineProgram(const std::vector<std::string>& words) {
    std::array<int, 2> in{};
    std::array<int, 2> out{};
    if (pipe2(in.data(), O_CLOEXEC) != 0 || pipe2(out.data(), O_CLOEXEC) != 0) std::abort();
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, in[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
    std::vector<char*> arguments;
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    if (posix_spawnp(&child_, arguments[0], &actions, nullptr, arguments.data(), environ) != 0) std::abort();
    posix_spawn_file_actions_destroy(&actions);
    close(in[0]);
    close(out[1]);
    input_ = in[1];
    output_ = out[0];
  }
  ~LineProgram() {
    close(input_);
    close(output_);
    waitpid(child_, nullptr, 0);
  }
  LineProgram(const LineProgram&) = delete;
  LineProgram& operator=(const LineProgram&) = delete;

  void send(const std::string& lines) const {
    if (write(input_, lines.data(), lines.size()) != static_cast<ssize_t>(lines.size())) std::abort();
  }
  void receive(std::int64_t lines) {
    while (lines > 0) {
      const ssize_t size = read(output_, buffer_.data(), buffer_.size());
      if (size <= 0) std::abort();
      lines -= std::count(buffer_.begin(), buffer_.begin() + size, '\n');
    }
  }

 private:
  pid_t child_ = 0;
  int input_ = -1;
  int output_ = -1;
  std::array<char, 65536> buffer_{};
};

void oneAtATime(benchmark::State& state, const std::vector<std::string>& words) {
  LineProgram program(words);
  for (auto _ : state) {
    program.send(kRequest);
    program.receive(1);
  }
  state.SetItemsProcessed(state.iterations());
}

// A block fits in the pipes, so that nobody waits for a reader.
void aThousand(benchmark::State& state, const std::vector<std::string>& words) {
  constexpr std::int64_t kBlock = 250;
  LineProgram program(words);
  std::string block;
  for (std::int64_t i = 0; i < kBlock; ++i) block += kRequest;
  for (auto _ : state) {
    for (std::int64_t sent = 0; sent < kSentAtOnce; sent += kBlock) {
      program.send(block);
      program.receive(kBlock);
    }
  }
  state.SetItemsProcessed(state.iterations() * kSentAtOnce);
}

}  // namespace
}  // namespace qvn::bench

int main(int argc, char** argv) {
  using namespace qvn::bench;
  const std::vector<std::string> bridge = {QVN_PROGRAM, "puente"};
  const std::vector<std::string> echo = {"cat"};
  const auto add = [](const char* name, auto turn, const std::vector<std::string>& words) {
    benchmark::RegisterBenchmark(name, [=](benchmark::State& state) { turn(state, words); })->UseRealTime();
  };
  add("call/qvn", oneAtATime, bridge);
  add("call/cat", oneAtATime, echo);
  add("thousand_calls/qvn", aThousand, bridge);
  add("thousand_calls/cat", aThousand, echo);
  return runBesidePeers(argc, argv);
}
