// qvn letra: writes amounts in words.
#include <array>

#include "apps/qvn/commands.h"
#include "apps/qvn/key_operands.h"
#include "apps/qvn/text_items.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Escribe cada CANTIDAD con letra, como la imprime PonLetra en los documentos. La
cantidad lleva punto decimal y no lleva comas, en cualquier configuración
regional. Sin CANTIDAD, o con «-», lee una en cada renglón de la entrada
estándar; un renglón que no se puede escribir se avisa con su número, se omite
y el comando termina con 1.

La letra es la del sistema, con sus blancos: 101 es «CIENTO  UNO». Las
cantidades negativas no tienen letra; de mil millones en adelante se omite lo
que pasa de los millones. En millones, los millares pueden quedar en uno menos
(1003000 es «UN MILLON DOS MIL»): las pantallas lo escriben así. Redondee antes
a centavos: 12.999 da 100 centavos, y eso es el error 5.
)";

constexpr std::string_view kExamples = R"(
  qvn letra 1234.56 --moneda PESOS --leyenda M.N.
      escribe UN MIL DOSCIENTOS TREINTA Y CUATRO PESOS 56 /100 M.N.
  qvn letra --sin-decimales 31
      escribe solo la letra, con los blancos que PonLetra pone delante
  qvn letra --moneda PESOS --leyenda M.N. < importes.txt > letras.txt
      un importe en cada renglón
)";

constexpr Option kCurrencyOption{"moneda", 'm', "TEXTO", "la moneda, entre la letra y los centavos"};
constexpr Option kLegendOption{"leyenda", 'l', "TEXTO", "lo que va después de los centavos, como M.N."};
constexpr Option kBareOption{"sin-decimales", 0, "", "solo la letra: sin moneda, centavos ni leyenda"};
constexpr auto kOptions = std::to_array<Option>({kCurrencyOption, kLegendOption, kBareOption});

ExitStatus runLetra(const Arguments& arguments, Context& context) {
  const std::string_view currency = arguments.value(kCurrencyOption.name).value_or("");
  const std::string givenLegend(arguments.value(kLegendOption.name).value_or(""));
  const bool withDecimals = !arguments.has(kBareOption.name);
  return convertTexts(arguments, context, "falta la cantidad", [&](std::string_view text) {
    double amount = decimalOperand(text, "una cantidad");
    std::string legend = givenLegend;
    return context.library.PonLetra(amount, legend, withDecimals, currency);
  });
}

}  // namespace

constinit const Command kLetraCommand{
    "letra", "escribe cantidades con letra", "[CANTIDAD...]", kDescription, kOptions, kExamples, runLetra};

}  // namespace qvn::cli
