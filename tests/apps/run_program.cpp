#include "tests/apps/run_program.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
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

int waitFor(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) throw std::system_error(errno, std::generic_category(), "waitpid");
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

int openFile(const std::string& file, int flags) {
  const int descriptor = open(file.c_str(), flags | O_CLOEXEC, 0600);
  if (descriptor < 0) throw std::system_error(errno, std::generic_category(), file);
  return descriptor;
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
  const ScratchFolder files;
  const std::string input = files.path("in");
  const std::string output = call.outputFile.empty() ? files.path("out") : call.outputFile;
  const std::string messages = files.path("err");
  putBytes(input, call.input);

  std::vector<std::string> words{call.program.empty() ? QVN_PROGRAM : call.program};
  words.insert(words.end(), call.arguments.begin(), call.arguments.end());
  std::vector<std::string> variables = environmentFor(call);
  const std::vector<char*> argv = pointersTo(words);
  const std::vector<char*> environment = pointersTo(variables);
  const int streams[] = {openFile(input, O_RDONLY),
                         call.hasReader ? openFile(output, O_WRONLY | O_CREAT) : brokenPipe(),
                         openFile(messages, O_WRONLY | O_CREAT)};

  const pid_t process = fork();
  if (process == 0) {
    // As a shell starts programs: whoever started the tests may have had this signal ignored, and that is inherited.
    std::signal(SIGPIPE, SIG_DFL);
    for (int i = 0; i < 3; ++i) dup2(streams[i], i);
    if (call.folder.empty() || chdir(call.folder.c_str()) == 0) execve(argv[0], argv.data(), environment.data());
    _exit(127);
  }
  for (const int stream : streams) close(stream);
  if (process < 0) throw std::runtime_error("cannot fork");
  const int status = waitFor(process);
  return {status, call.hasReader && call.outputFile.empty() ? bytesOf(output) : "", bytesOf(messages)};
}

Outcome expectRun(int status, const Call& call, const std::vector<std::string>& said) {
  SCOPED_TRACE("qvn " + testing::PrintToString(call.arguments));
  const Outcome outcome = run(call);
  EXPECT_EQ(outcome.status, status);
  EXPECT_EQ(outcome.err.starts_with("qvn: "), !said.empty()) << outcome.err;
  EXPECT_EQ(outcome.err.empty(), said.empty()) << outcome.err;
  expectHolds(outcome.err, said);
  return outcome;
}

void expectHolds(const std::string& text, const std::vector<std::string>& pieces) {
  for (const std::string& piece : pieces) {
    EXPECT_NE(text.find(piece), std::string::npos) << "missing: " << piece << "\nin: " << text;
  }
}

}  // namespace qvn::test
