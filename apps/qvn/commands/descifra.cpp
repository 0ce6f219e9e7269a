// qvn descifra: undoes what cifra does.
#include <array>

#include "apps/qvn/commands.h"
#include "apps/qvn/scramble_key.h"
#include "apps/qvn/text_items.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Devuelve con Decrypta cada TEXTO que «qvn cifra» revolvió con la misma llave.
Sin TEXTO, o con «-», toma cada renglón de la entrada estándar; uno que no se
puede descifrar se avisa con su número, se omite y el comando termina con 1.

Quita antes los blancos de los extremos, que son del texto cifrado: si el
cifrado empezaba o terminaba en blanco, no vuelve igual.
)";

constexpr std::string_view kExamples = R"(
  qvn descifra --llave 64 DMBWF
      escribe CLAVE
)";

constexpr auto kOptions = std::to_array<Option>({kKeyOption});

ExitStatus runDescifra(const Arguments& arguments, Context& context) {
  const std::int16_t key = scrambleKey(arguments);
  return convertTexts(arguments, context, "falta el texto",
                      [&](std::string_view text) { return context.library.Decrypta(text, key); });
}

}  // namespace

constinit const Command kDescifraCommand{
    "descifra", "devuelve los textos que cifra revolvió", "[TEXTO...]", kDescription, kOptions, kExamples, runDescifra};

}  // namespace qvn::cli
