// qvn: the library at the command line. "qvn --ayuda" says what it does.
#include <unistd.h>

#include <clocale>
#include <ios>
#include <string_view>
#include <vector>

#include "apps/qvn/program.h"
#include "apps/qvn/window_program.h"

int main(int argc, char** argv) {
  // Numbers and dates are written by the person's own regional settings; without them, by those of "C".
  std::setlocale(LC_ALL, "");
  // Lines of any length are read in blocks; nothing here reads standard input through the C library.
  std::ios::sync_with_stdio(false);

  const std::vector<std::string_view> words(argv, argv + argc);
  const std::string_view programName = words.empty() ? "qvn" : words.front();
  qvn::cli::Output out(STDOUT_FILENO, qvn::cli::Output::OnFailure::Throw);
  qvn::cli::Output messages(STDERR_FILENO, qvn::cli::Output::OnFailure::Ignore);
  const std::span<const std::string_view> arguments = std::span(words).subspan(words.empty() ? 0 : 1);
  return static_cast<int>(
      qvn::cli::runProgram(programName, arguments, out, messages, [argv] { qvn::cli::continueWithWindows(argv); }));
}
