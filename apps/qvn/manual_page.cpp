#include "apps/qvn/manual_page.h"

#include "apps/qvn/commands.h"
#include "apps/qvn/help.h"

namespace qvn::cli {
namespace {

// Text as the formatter shows it: a backslash and a hyphen stand for themselves, and a line that begins with a dot or
// an apostrophe is no request.
std::string escaped(std::string_view text) {
  std::string result;
  bool beginsLine = true;
  for (const char c : text) {
    if (beginsLine && (c == '.' || c == '\'')) result.append("\\&");
    if (c == '\\') {
      result.append("\\e");
    } else if (c == '-') {
      result.append("\\-");
    } else {
      result.push_back(c);
    }
    beginsLine = c == '\n';
  }
  return result;
}

std::string_view trimmed(std::string_view text) {
  while (text.starts_with('\n')) text.remove_prefix(1);
  while (text.ends_with('\n')) text.remove_suffix(1);
  return text;
}

// Lines kept as they are, which the help texts' own columns need.
std::string asWritten(std::string_view text) { return ".nf\n" + escaped(trimmed(text)) + "\n.fi\n"; }

std::string optionParagraph(const Option& option) {
  std::string head;
  if (option.letter != 0) head.append("-").append(1, option.letter).append(", ");
  head.append("--").append(option.name);
  if (!option.valueName.empty()) head.append(" ").append(option.valueName);
  return ".TP\n.B " + escaped(head) + "\n" + escaped(option.help) + "\n";
}

std::string commandSection(const Command& command) {
  std::string section = ".SS " + escaped(command.name) + "\n";
  section.append(escaped(command.summary)).append(".\n.PP\n.B qvn ").append(escaped(command.name));
  if (!command.options.empty()) section.append(" [opciones]");
  section.append(" ").append(escaped(command.operands)).append("\n.PP\n").append(asWritten(command.description));
  for (const Option& option : command.options) section.append(optionParagraph(option));
  return section.append(".PP\nEjemplos:\n.PP\n").append(asWritten(command.examples));
}

}  // namespace

std::string manualPage() {
  std::string page = R"(.TH QVN 1 "" ")" + escaped(trimmed(versionText())) + R"(" "Órdenes de usuario")";
  page +=
      "\n.SH NOMBRE\nqvn \\- funciones de punto de venta y administración, desde la terminal\n"
      ".SH SINOPSIS\n.B qvn\nCOMANDO [opciones] [argumentos]\n";
  page += ".SH CONEXIÓN\n" + asWritten(connectionHelp());
  page += ".SH COMANDOS\n";
  for (const Command* command : allCommands()) page += commandSection(*command);
  page += ".SH ESTADO DE SALIDA\n" + asWritten(exitStatuses());
  page += ".SH ENTORNO\n.TP\n.B QVN_CONEXION\nLa conexión, cuando no se da \\-c.\n";
  return page;
}

}  // namespace qvn::cli
