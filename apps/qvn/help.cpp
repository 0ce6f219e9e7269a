#include "apps/qvn/help.h"

#include <algorithm>

#include "apps/qvn/commands.h"
#include "apps/qvn/terminal_text.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kConnectionHelp = R"(
La conexión se da con -c CADENA o en la variable de entorno QVN_CONEXION, que
es mejor lugar para una contraseña. Por ejemplo:
  Provider=SQLite;Data Source=tienda.db
  MySQL;SERVER=localhost;DATABASE=tienda;UID=pos;PWD=...
)";

constexpr std::string_view kExitStatuses = R"(
  0  se hizo lo pedido
  1  la operación falló; el motivo está en la salida de errores
  2  el comando está mal escrito; no se hizo nada
)";

// Columns of the left side of a list of two columns.
constexpr std::size_t kCommandColumns = 17;
constexpr std::size_t kOptionColumns = 25;

// "  left     right", the further lines of `right` below its first one.
std::string listEntry(std::string_view left, std::string_view right, std::size_t columns) {
  std::string entry = "  " + std::string(left);
  entry.append(std::max(columns, displayWidth(left) + 2) - displayWidth(left), ' ');
  for (const char c : right) {
    entry.push_back(c);
    if (c == '\n') entry.append(columns + 2, ' ');
  }
  return entry + "\n";
}

std::string optionEntry(const Option& option) {
  std::string left = option.letter == 0 ? "    " : std::string("-") + option.letter + ", ";
  left.append("--").append(option.name);
  if (!option.valueName.empty()) left.append(" ").append(option.valueName);
  return listEntry(left, option.help, kOptionColumns);
}

}  // namespace

std::string_view connectionHelp() { return kConnectionHelp; }

std::string_view exitStatuses() { return kExitStatuses; }

std::string versionText() { return "qvn " QVN_VERSION "\n"; }

std::string overviewHelp() {
  std::string help =
      "qvn: funciones de punto de venta y administración, desde la terminal\n"
      "\n"
      "Uso: qvn COMANDO [opciones] [argumentos]\n"
      "\n"
      "Comandos:\n";
  for (const Command* command : allCommands()) help += listEntry(command->name, command->summary, kCommandColumns);
  help += kConnectionHelp;
  help +=
      "\n"
      "«qvn COMANDO --ayuda» explica cada comando y «qvn --version» dice la versión.\n"
      "«qvn --manual» escribe la página de manual y «qvn --completado» lo que bash\n"
      "ofrece con la tecla Tab; al instalar el programa quedan en su lugar.\n"
      "Para empezar: qvn demo\n";
  return help;
}

std::string commandHelp(const Command& command) {
  std::string help = "Uso: qvn " + std::string(command.name) + " [opciones]";
  if (!command.operands.empty()) help.append(" ").append(command.operands);
  help.append("\n").append(command.description).append("\nOpciones:\n");
  for (const Option& option : command.options) help += optionEntry(option);
  help += optionEntry(kHelpOption);
  return help.append("\nEjemplos:").append(command.examples).append("\nEstado de salida:").append(kExitStatuses);
}

}  // namespace qvn::cli
