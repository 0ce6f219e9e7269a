#include "apps/qvn/completion.h"

#include "apps/qvn/commands.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kHead = R"(# Completado de bash para qvn; lo escribe "qvn --completado".
_qvn() {
  local palabra=${COMP_WORDS[COMP_CWORD]} palabras
  COMPREPLY=()
  if ((COMP_CWORD == 1)); then
    palabras="@commands"
  else
    [[ $palabra == -* ]] || return 0
    case ${COMP_WORDS[1]} in
)";

constexpr std::string_view kTail = R"(    esac
  fi
  mapfile -t COMPREPLY < <(compgen -W "$palabras" -- "$palabra")
}
complete -o bashdefault -o default -F _qvn qvn
)";

std::string options(const Command& command) {
  std::string words;
  for (const Option& option : command.options) words.append("--").append(option.name).append(" ");
  return words.append("--").append(kHelpOption.name);
}

}  // namespace

std::string bashCompletion() {
  constexpr std::string_view kPlace = "@commands";
  std::string names;
  std::string cases;
  for (const Command* command : allCommands()) {
    names.append(command->name).append(" ");
    cases.append("      ").append(command->name).append(") palabras=\"").append(options(*command)).append("\" ;;\n");
  }
  std::string script(kHead);
  script.replace(script.find(kPlace), kPlace.size(), names + "--ayuda --version --manual --completado");
  return script.append(cases).append(kTail);
}

}  // namespace qvn::cli
