// qvn cifra: scrambles texts.
#include <array>

#include "apps/qvn/commands.h"
#include "apps/qvn/scramble_key.h"
#include "apps/qvn/text_items.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Revuelve cada TEXTO con Encrypta, como los guarda el sistema; «qvn descifra»
con la misma llave lo devuelve. Sin TEXTO, o con «-», toma cada renglón de la
entrada estándar.

No protege nada: cada carácter se recorre lo mismo, la llave entre 64
redondeada (las llaves de -32 a 32 no cambian el texto). El carácter que pasa
del código 255 se pierde y repite el anterior; el que no está en la página de
códigos 1252 cuenta como «?». El resultado puede tener caracteres de control.
)";

constexpr std::string_view kExamples = R"(
  qvn cifra --llave 64 CLAVE
      escribe DMBWF
  qvn cifra --llave 1000 < claves.txt > cifradas.txt
      un texto en cada renglón
)";

constexpr auto kOptions = std::to_array<Option>({kKeyOption});

ExitStatus runCifra(const Arguments& arguments, Context& context) {
  const std::int16_t key = scrambleKey(arguments);
  return convertTexts(arguments, context, "falta el texto",
                      [&](std::string_view text) { return context.library.Encrypta(text, key); });
}

}  // namespace

constinit const Command kCifraCommand{
    "cifra", "revuelve textos con una llave", "[TEXTO...]", kDescription, kOptions, kExamples, runCifra};

}  // namespace qvn::cli
