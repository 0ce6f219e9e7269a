#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <thread>

#include "qvn/system/child_process.h"

namespace qvn::system {
namespace {

class FileActions {
 public:
  FileActions() { posix_spawn_file_actions_init(&actions_); }
  ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;
  posix_spawn_file_actions_t* get() { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

// The child starts with the usual treatment of signals, whatever this process has made of them: libraries for databases
// ignore broken pipes, and a program that inherits that does not end when its reader is gone.
class Attributes {
 public:
  Attributes() {
    posix_spawnattr_init(&attributes_);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes_, &signals);
    sigaddset(&signals, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes_, &signals);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  }
  ~Attributes() { posix_spawnattr_destroy(&attributes_); }
  Attributes(const Attributes&) = delete;
  Attributes& operator=(const Attributes&) = delete;
  void setOwnGroup() {
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
  }
  [[nodiscard]] const posix_spawnattr_t* get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_{};
};

StartOutcome outcomeOf(int systemError) {
  switch (systemError) {
    case 0:
      return StartOutcome::Started;
    case ENOMEM:
    case EAGAIN:
      return StartOutcome::NoMemory;
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
      return StartOutcome::NotFound;
    default:
      return StartOutcome::Forbidden;
  }
}

// An empty line of words has nothing to start.
int spawn(const std::vector<std::string>& words, FileActions& actions, const Attributes& attributes, pid_t& process) {
  if (words.empty() || words.front().empty()) return ENOENT;
  // Closed instead of empty, descriptor 0 would go to the first file that the program opens.
  posix_spawn_file_actions_addopen(actions.get(), STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  // The interface takes no constant texts, and changes none.
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  return posix_spawnp(&process, arguments.front(), actions.get(), attributes.get(), arguments.data(), environ);
}

// The system keeps a process that has ended until somebody asks for it; nobody else will.
void bury(pid_t process) {
  if (waitpid(process, nullptr, WNOHANG) != 0) return;
  try {
    std::thread([process] {
      while (waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
      }
    }).detach();
  } catch (const std::system_error&) {
    return;  // it stays in the system's list until this process ends
  }
}

}  // namespace

CapturedProcess::CapturedProcess(const std::vector<std::string>& words) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) {
    systemError_ = errno;
    outcome_ = StartOutcome::NoPipe;
    return;
  }
  pipe_ = ends[0];
  FileActions actions;
  posix_spawn_file_actions_adddup2(actions.get(), ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(actions.get(), ends[1], STDERR_FILENO);
  pid_t process = 0;
  systemError_ = spawn(words, actions, Attributes(), process);
  outcome_ = outcomeOf(systemError_);
  // The pipe ends when the program's own copies are closed.
  close(ends[1]);
  if (outcome_ == StartOutcome::Started) process_ = process;
}

CapturedProcess::~CapturedProcess() {
  if (pipe_ >= 0) close(pipe_);
  if (process_ > 0) bury(process_);
}

std::size_t CapturedProcess::read(std::span<char> buffer) const {
  while (true) {
    const ssize_t count = ::read(pipe_, buffer.data(), buffer.size());
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno != EINTR) return 0;
  }
}

StartOutcome startDetached(const std::vector<std::string>& words, const std::string& folder) {
  FileActions actions;
  if (!folder.empty()) posix_spawn_file_actions_addchdir_np(actions.get(), folder.c_str());
  Attributes attributes;
  attributes.setOwnGroup();
  pid_t process = 0;
  const StartOutcome outcome = outcomeOf(spawn(words, actions, attributes, process));
  if (outcome == StartOutcome::Started) bury(process);
  return outcome;
}

}  // namespace qvn::system
