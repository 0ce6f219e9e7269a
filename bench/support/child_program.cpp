#include "bench/support/child_program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace qvn::bench {
namespace {

constexpr double kKilobytesPerMegabyte = 1024;
constexpr mode_t kOwnerOnly = 0600;

}  // namespace

double peakMegabytes(const ChildProgram& program) {
  std::vector<std::string> words = program.words;
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, program.input.c_str(), O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, program.output.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                   kOwnerOnly);
  pid_t child = 0;
  const int started = posix_spawnp(&child, arguments.front(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  int status = -1;
  rusage usage{};
  if (started != 0 || wait4(child, &status, 0, &usage) != child || status != 0) {
    std::fprintf(stderr, "%s failed\n", arguments.front());
    std::exit(1);
  }
  return static_cast<double>(usage.ru_maxrss) / kKilobytesPerMegabyte;
}

}  // namespace qvn::bench
