// qvn puente: the library for programs in other languages.
#include <unistd.h>

#include <array>
#include <charconv>

#include "apps/qvn/commands.h"
#include "apps/qvn/terminal_text.h"
#include "qvn/automation/bridge.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Deja que un programa en cualquier lenguaje use la biblioteca: lee peticiones de
la entrada estándar, una por renglón, en JSON, y escribe por cada una un renglón
de respuesta, en el mismo orden, hasta que la entrada termina.

Una petición nombra el método en «op» y sus argumentos en «in»; la respuesta
trae en «out» el resultado y los argumentos que el método cambia, o en «error»
el número y la descripción de la falla. Las bases abiertas, los registros y
demás objetos se quedan en el puente y se nombran por su número: {"object":1}.
Una pregunta a la persona llega como un renglón con «event» antes de la
respuesta, y se contesta con {"answer":...}. «qvn metodos» lista los métodos.
)";

constexpr std::string_view kExamples = R"(
  qvn puente < peticiones.txt > respuestas.txt
      a {"id":1,"op":"Mes","in":{"nMes":3}} se responde
      {"id":1,"out":{"result":"Marzo"}}
)";

constexpr std::size_t kUsualLimit = 64;
constexpr Option kLimitOption{"limite", 0, "MIB", "tamaño máximo de un renglón en MiB, 64 si no se dice"};
constexpr auto kOptions = std::to_array<Option>({kLimitOption});

std::size_t limitOf(const Arguments& arguments) {
  const auto text = arguments.value(kLimitOption.name);
  if (!text) return kUsualLimit;
  constexpr std::size_t kMost = 4096;
  std::size_t limit = 0;
  const auto read = std::from_chars(text->data(), text->data() + text->size(), limit);
  if (read.ec != std::errc() || read.ptr != text->data() + text->size() || limit == 0 || limit > kMost) {
    throw UsageError("--limite va de 1 a 4096 MiB y no es «" + safeText(*text) + "»");
  }
  return limit;
}

ExitStatus runPuente(const Arguments& arguments, Context& /*context*/) {
  if (!arguments.operands().empty()) throw UsageError("las peticiones van por la entrada estándar");
  constexpr std::size_t kMebibyte = 1048576;
  const auto channel = automation::descriptorChannel(STDIN_FILENO, STDOUT_FILENO, limitOf(arguments) * kMebibyte);
  automation::Bridge(*channel).run();
  return ExitStatus::Done;
}

}  // namespace

constinit const Command kPuenteCommand{
    "puente", "usa la biblioteca desde un programa en cualquier lenguaje", "", kDescription, kOptions, kExamples,
    runPuente};

}  // namespace qvn::cli
