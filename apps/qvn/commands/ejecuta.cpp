// qvn ejecuta: runs a command and captures what it writes.
#include <array>
#include <memory>

#include "apps/qvn/commands.h"
#include "apps/qvn/terminal_text.h"
#include "qvn/dialogs/scripted_dialogs.h"
#include "qvn/system/command_line.h"
#include "qvn/system/dos_outputs.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Ejecuta COMANDO sin intérprete de por medio y escribe lo que él escribe, en su
salida y en su salida de errores, conforme llega. Con un solo argumento éste es
la línea completa: los espacios separan, las comillas dobles o sencillas unen.
Con varios, cada uno es un argumento. Para tuberías y comodines ponga el
intérprete en la línea: sh -c '...'.

Termina cuando el comando y todo lo que él arrancó cierran su salida. El estado
de salida del comando no se pregunta.
)";

constexpr std::string_view kExamples = R"(
  qvn ejecuta "mariadb --version"
      muestra lo que escribe el cliente de MySQL
  qvn ejecuta --a-archivo salida.txt -- df -h /
      agrega a salida.txt lo que escribe df, en trozos de 256 bytes a lo más,
      cada uno con su fin de línea
)";

constexpr Option kFileOption{"a-archivo", 'a', "ARCHIVO", "agrega los trozos al archivo en vez de mostrarlos"};
constexpr auto kOptions = std::to_array<Option>({kFileOption});

std::string lineOf(const std::vector<std::string_view>& operands) {
  if (operands.empty()) throw UsageError("falta el comando");
  if (operands.size() == 1) return std::string(operands.front());
  std::string line;
  for (const std::string_view operand : operands) line += system::quotedArgument(operand) + " ";
  return line;
}

[[noreturn]] void fail(const std::string& line) {
  throw RuntimeError(error_number::kFileNotFound,
                     "No se pudo iniciar «" + safeText(line) + "»; revise que el programa exista y se pueda ejecutar");
}

void runToFile(const std::string& line, std::string_view file) {
  std::string error;
  system::DOSOutputs(nullptr).ExecuteToFile(line, file, error);
  if (!error.empty()) fail(line);
}

ExitStatus runEjecuta(const Arguments& arguments, Context& context) {
  const std::string line = lineOf(arguments.operands());
  if (system::splitCommandLine(line).empty()) throw UsageError("el comando está vacío");
  if (const auto file = arguments.value(kFileOption.name)) {
    runToFile(line, *file);
    return ExitStatus::Done;
  }
  const auto failures = std::make_shared<dialogs::ScriptedDialogs>();
  system::DOSOutputs console(failures);
  console.onReceiveOutputs([&](std::string_view piece) {
    context.out << piece;
    if (context.out.isTerminal()) context.out.flush();
  });
  console.ExecuteCommand(line);
  if (!failures->shown().empty()) fail(line);
  return ExitStatus::Done;
}

}  // namespace

constinit const Command kEjecutaCommand{
    "ejecuta", "ejecuta un comando y captura lo que escribe", "COMANDO...", kDescription, kOptions, kExamples,
    runEjecuta};

}  // namespace qvn::cli
