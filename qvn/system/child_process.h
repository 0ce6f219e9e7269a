// Starting programs.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qvn::system {

/// What came of starting a program.
enum class StartOutcome {
  Started,
  NoPipe,     ///< the system had no pipe to give
  NotFound,   ///< no such program, or no such folder to start it in
  Forbidden,  ///< it is no program, or may not be run
  NoMemory,
};

/// A running program whose standard output and standard error arrive in one pipe. Its standard input is at its end.
/// The destructor lets go of both: the program goes on, and nobody waits for it.
class CapturedProcess {
 public:
  /// `words`: the program, looked for in PATH when it has no "/", and its arguments.
  explicit CapturedProcess(const std::vector<std::string>& words);
  ~CapturedProcess();
  CapturedProcess(const CapturedProcess&) = delete;
  CapturedProcess& operator=(const CapturedProcess&) = delete;

  [[nodiscard]] StartOutcome outcome() const { return outcome_; }
  /// The system's number of the failure; 0 for a program that was started.
  [[nodiscard]] int systemError() const { return systemError_; }

  /// Waits for output and gives what one read of the pipe holds; 0 when the program and all that it started have closed
  /// their ends.
  std::size_t read(std::span<char> buffer) const;

 private:
  StartOutcome outcome_ = StartOutcome::Started;
  int systemError_ = 0;
  int pipe_ = -1;
  int process_ = 0;
};

/// Starts a program that goes on by itself, in `folder` unless that is empty. Its standard input is at its end; its
/// output goes where this process's goes; keys that end this process do not reach it.
StartOutcome startDetached(const std::vector<std::string>& words, const std::string& folder = {});

}  // namespace qvn::system
