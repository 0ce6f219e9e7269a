#include "apps/qvn/program.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "apps/qvn/commands.h"
#include "apps/qvn/completion.h"
#include "apps/qvn/error_report.h"
#include "apps/qvn/help.h"
#include "apps/qvn/manual_page.h"
#include "apps/qvn/terminal_text.h"

namespace qvn::cli {
namespace {

// What a wrong call is told to read.
std::string helpHint(const Command* command) {
  const std::string name = command == nullptr ? "" : std::string(command->name) + " ";
  return "     Vea «qvn " + name + "--ayuda».\n";
}

ExitStatus runCommand(const Command& command, std::span<const std::string_view> words, Context& context) {
  const Arguments arguments = parseArguments(command.options, words);
  if (arguments.has(kHelpOption.name)) {
    context.out << commandHelp(command);
    return ExitStatus::Done;
  }
  return command.run(arguments, context);
}

// What the program says of itself.
struct OwnText {
  std::string_view option;
  std::string (*write)();
};
constexpr auto kOwnTexts = std::to_array<OwnText>({
    {"--ayuda", overviewHelp},
    {"--help", overviewHelp},
    {"-h", overviewHelp},
    {"--version", versionText},
    {"--manual", manualPage},
    {"--completado", bashCompletion},
});

ExitStatus runFirstWord(const Command* command, std::span<const std::string_view> words, Context& context) {
  if (words.empty()) throw UsageError("falta el comando");
  if (command != nullptr) return runCommand(*command, words.subspan(1), context);
  const auto* own = std::ranges::find(kOwnTexts, words.front(), &OwnText::option);
  if (own != kOwnTexts.end()) {
    context.out << own->write();
    return ExitStatus::Done;
  }
  if (words.front().starts_with('-')) throw UsageError("el comando va antes que sus opciones");
  throw UsageError("no existe el comando «" + safeText(words.front()) + "»");
}

// Writes what the command had to say before its message.
ExitStatus fail(Context& context, std::string_view message, ExitStatus status) {
  try {
    context.out.flush();
  } catch (const std::exception&) {
    // The failure that is being reported came first.
  }
  context.messages << message;
  context.messages.flush();
  return status;
}

}  // namespace

ExitStatus runProgram(std::string_view programName, std::span<const std::string_view> words, Output& out,
                      Output& messages, std::function<void()> openWindows) noexcept {
  LumLibreria library;
  // After the library, whose client of MySQL sets what the process does with this signal for itself.
  surviveBrokenPipes();
  Context context{out, messages, programName, library, std::move(openWindows)};
  const Command* command = words.empty() ? nullptr : findCommand(words.front());
  try {
    const ExitStatus status = runFirstWord(command, words, context);
    out.flush();
    messages.flush();
    return status;
  } catch (const UsageError& error) {
    return fail(context, "qvn: " + std::string(error.what()) + "\n" + helpHint(command), ExitStatus::BadUsage);
  } catch (const OutputClosed&) {
    return ExitStatus::Done;
  } catch (const OutputFailed& error) {
    return fail(context, "qvn: no se pudo escribir la salida: " + std::string(error.what()) + "\n", ExitStatus::Failed);
  } catch (const RuntimeError& error) {
    return fail(context, failureReport(error), ExitStatus::Failed);
  } catch (const std::exception& error) {
    return fail(context, failureReport(error), ExitStatus::Failed);
  }
}

}  // namespace qvn::cli
