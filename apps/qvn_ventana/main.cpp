// qvn-ventana: what "qvn ... --ventana" becomes. The same commands, whose questions are windows.
#include <unistd.h>

#include <QApplication>
#include <algorithm>
#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "apps/qvn/program.h"

namespace {

constexpr int kFailed = static_cast<int>(qvn::cli::ExitStatus::Failed);

[[noreturn]] void refuse(const char* reason) {
  std::fprintf(stderr, "qvn: no se puede abrir una ventana: %s\n", reason);
  std::exit(kFailed);
}

// Without this a display that does not answer would end the program with a core file.
void refuseFatally(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  if (type == QtFatalMsg) refuse("la pantalla no responde; revise la variable DISPLAY o quite --ventana");
  if (type == QtCriticalMsg) std::fprintf(stderr, "qvn: %s\n", text.toLocal8Bit().constData());
}

bool hasDisplay() {
  static constexpr std::array<const char*, 3> kVariables = {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"};
  return std::ranges::any_of(kVariables, [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
}

}  // namespace

int main(int argc, char** argv) {
  if (!hasDisplay()) refuse("no hay una pantalla; pregunte en la terminal, sin --ventana");
  qInstallMessageHandler(refuseFatally);
  const QApplication application(argc, argv);
  // After the application, which sets the regional settings of the process for itself.
  std::setlocale(LC_ALL, "");
  const std::vector<std::string_view> words(argv, argv + argc);
  qvn::cli::Output out(STDOUT_FILENO, qvn::cli::Output::OnFailure::Throw);
  qvn::cli::Output messages(STDERR_FILENO, qvn::cli::Output::OnFailure::Ignore);
  return static_cast<int>(qvn::cli::runProgram(words.empty() ? "qvn" : words.front(),
                                               std::span(words).subspan(words.empty() ? 0 : 1), out, messages, [] {}));
}
