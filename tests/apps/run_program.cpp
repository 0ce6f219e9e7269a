#include "tests/apps/run_program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace qvn::test {
namespace {

// Of the tests' own environment.
bool isLeftOut(std::string_view variable) {
  return variable.starts_with("LC_") || variable.starts_with("LANG") || variable.starts_with("QVN_CONEXION=");
}

std::vector<std::string> environmentFor(const Call& call) {
  std::vector<std::string> variables = call.environment;
  bool hasLocale = false;
  for (const std::string& variable : variables) hasLocale = hasLocale || variable.starts_with("LC_ALL=");
  if (!hasLocale) variables.emplace_back("LC_ALL=C");
  for (char** variable = environ; *variable != nullptr; ++variable) {
    if (!isLeftOut(*variable)) variables.emplace_back(*variable);
  }
  return variables;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

// What the child does between fork and exec.
class SpawnActions {
 public:
  SpawnActions() { posix_spawn_file_actions_init(&actions_); }
  ~SpawnActions() { posix_spawn_file_actions_destroy(&actions_); }
  SpawnActions(const SpawnActions&) = delete;
  SpawnActions& operator=(const SpawnActions&) = delete;

  void open(int descriptor, const std::string& file, int flags) {
    posix_spawn_file_actions_addopen(&actions_, descriptor, file.c_str(), flags, 0600);
  }
  void duplicate(int from, int to) { posix_spawn_file_actions_adddup2(&actions_, from, to); }
  void enter(const std::filesystem::path& folder) { posix_spawn_file_actions_addchdir_np(&actions_, folder.c_str()); }
  [[nodiscard]] const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

// As a shell starts programs: whoever started the tests may have had this signal ignored, and that is inherited.
class SpawnAttributes {
 public:
  SpawnAttributes() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    posix_spawnattr_init(&attributes_);
    posix_spawnattr_setsigdefault(&attributes_, &signals);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF);
  }
  ~SpawnAttributes() { posix_spawnattr_destroy(&attributes_); }
  SpawnAttributes(const SpawnAttributes&) = delete;
  SpawnAttributes& operator=(const SpawnAttributes&) = delete;
  [[nodiscard]] const posix_spawnattr_t* get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_{};
};

int waitFor(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) throw std::system_error(errno, std::generic_category(), "waitpid");
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

// The writing end of a pipe that nobody reads.
int brokenPipe() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::system_error(errno, std::generic_category(), "pipe2");
  close(ends[0]);
  return ends[1];
}

}  // namespace

Outcome run(const Call& call) {
  const TempFolder files;
  const std::string input = files.path() / "in";
  const std::string output = call.outputFile.empty() ? std::string(files.path() / "out") : call.outputFile;
  const std::string messages = files.path() / "err";
  writeFile(input, call.input);

  std::vector<std::string> words{call.program.empty() ? QVN_PROGRAM : call.program};
  words.insert(words.end(), call.arguments.begin(), call.arguments.end());
  std::vector<std::string> variables = environmentFor(call);

  SpawnActions actions;
  actions.open(STDIN_FILENO, input, O_RDONLY);
  const int broken = call.hasReader ? -1 : brokenPipe();
  if (call.hasReader) {
    actions.open(STDOUT_FILENO, output, O_WRONLY | O_CREAT);
  } else {
    actions.duplicate(broken, STDOUT_FILENO);
  }
  actions.open(STDERR_FILENO, messages, O_WRONLY | O_CREAT);
  if (!call.folder.empty()) actions.enter(call.folder);

  const SpawnAttributes attributes;
  pid_t process = 0;
  const int failure = posix_spawn(&process, words.front().c_str(), actions.get(), attributes.get(),
                                  pointersTo(words).data(), pointersTo(variables).data());
  if (broken >= 0) close(broken);
  if (failure != 0) throw std::runtime_error("cannot start " + words.front());
  const int status = waitFor(process);
  return {status, call.hasReader && call.outputFile.empty() ? readFile(output) : "", readFile(messages)};
}

TempFolder::TempFolder() {
  std::string name = std::filesystem::temp_directory_path() / "qvn_t_XXXXXX";
  if (mkdtemp(name.data()) == nullptr) throw std::system_error(errno, std::generic_category(), "mkdtemp");
  path_ = name;
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string readFile(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw std::runtime_error("cannot read " + file.string());
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

void writeFile(const std::filesystem::path& file, const std::string& text) {
  std::ofstream stream(file, std::ios::binary);
  stream << text;
  if (!stream.flush()) throw std::runtime_error("cannot write " + file.string());
}

}  // namespace qvn::test
