// qvn metodos: what qvn puente can call.
#include <algorithm>
#include <array>

#include "apps/qvn/commands.h"
#include "apps/qvn/terminal_text.h"
#include "qvn/automation/reference.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Lista los métodos que se pueden llamar con «qvn puente»: el nombre, sus
argumentos en orden y el tipo del resultado. Un argumento entre corchetes se
puede omitir y vale entonces lo que sigue al signo «=»; el de un tipo con «*» se
devuelve cambiado. Con uno o más TEXTOS, sólo los métodos cuyo nombre contiene
alguno, sin distinguir mayúsculas.
)";

constexpr std::string_view kExamples = R"(
  qvn metodos question
      Question(strMensaje String, [DefaultButton Integer = 1]) -> Boolean
      y Question2
  qvn metodos --json PonLetra
      un objeto de JSON por método y renglón, para programas
)";

constexpr Option kJsonOption{"json", 0, "", "un objeto de JSON por método"};
constexpr Option kMarkdownOption{"markdown", 0, "", "la referencia completa, en inglés, en Markdown"};
constexpr auto kOptions = std::to_array<Option>({kJsonOption, kMarkdownOption});

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool containsIgnoringCase(std::string_view text, std::string_view part) {
  const auto isSame = [](char left, char right) { return lower(left) == lower(right); };
  return std::search(text.begin(), text.end(), part.begin(), part.end(), isSame) != text.end() || part.empty();
}

ExitStatus runMetodos(const Arguments& arguments, Context& context) {
  if (arguments.has(kMarkdownOption.name)) {
    if (!arguments.operands().empty()) throw UsageError("con --markdown van todos los métodos; sobran los textos");
    context.out << automation::referencePage();
    return ExitStatus::Done;
  }
  bool isAny = false;
  for (const automation::Section& section : automation::allSections()) {
    for (const automation::Method& method : section.methods) {
      const auto isPart = [&](std::string_view text) { return containsIgnoringCase(method.name, text); };
      if (!arguments.operands().empty() && std::ranges::none_of(arguments.operands(), isPart)) continue;
      isAny = true;
      context.out << (arguments.has(kJsonOption.name) ? toText(automation::descriptionOf(method))
                                                      : automation::signatureOf(method))
                  << "\n";
    }
  }
  if (isAny) return ExitStatus::Done;
  context.messages << "qvn: ningún método contiene «" << safeText(arguments.operands().front()) << "»\n";
  return ExitStatus::Failed;
}

}  // namespace

constinit const Command kMetodosCommand{
    "metodos", "lista los métodos de la biblioteca y sus argumentos", "[TEXTO...]", kDescription, kOptions, kExamples,
    runMetodos};

}  // namespace qvn::cli
