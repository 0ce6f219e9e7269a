// qvn formato: lays out a value by a pattern.
#include <algorithm>
#include <array>
#include <optional>

#include "apps/qvn/commands.h"
#include "apps/qvn/terminal_text.h"
#include "qvn/base/date_text.h"
#include "qvn/base/number_text.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Escribe VALOR con la forma de PATRON, como lo hace Formato en las pantallas.
PATRON es de números ("#,##0.00", "0000", "0.0%"), de fechas ("dd/mm/yyyy",
"d mmmm yyyy", "hh:nn"), de textos (">", "@@@@") o un nombre ("Currency",
"Percent", "Long Date").

VALOR se toma como número si se lee como tal, si no como fecha, y si no como
texto. Se lee y se escribe con su configuración regional: donde la coma es el
separador decimal, 1234,5 es un número con un decimal y 1.234 es mil doscientos
treinta y cuatro. No usa ninguna base de datos.
)";

constexpr std::string_view kExamples = R"(
  qvn formato 1234.5 "#,##0.00"
      escribe 1,234.50 donde el punto es el separador decimal
  qvn formato 2012-03-07 "dd/mm/yyyy"
      escribe 07/03/2012
  qvn formato --tipo texto 00123 "@@@@@@@@"
      escribe el código al final de ocho lugares, con sus ceros
)";

constexpr Option kTypeOption{"tipo", 't', "TIPO", "toma VALOR como numero, fecha o texto"};
constexpr auto kOptions = std::to_array<Option>({kTypeOption});

using Reading = std::optional<Variant>;

Reading asNumber(std::string_view text) {
  const auto number = parseNumber(text);
  return number ? Reading(*number) : std::nullopt;
}

Reading asDate(std::string_view text) {
  const auto date = parseDate(text);
  return date ? Reading(*date) : std::nullopt;
}

Reading asText(std::string_view text) { return Variant(text); }

struct ValueType {
  std::string_view name;
  Reading (*read)(std::string_view text);
};

// In the order in which a value is tried; everything can be read as text.
constexpr auto kTypes = std::to_array<ValueType>({{"numero", asNumber}, {"fecha", asDate}, {"texto", asText}});

Variant readValue(std::string_view text) {
  Reading value;
  for (const ValueType& type : kTypes) {
    value = type.read(text);
    if (value) break;
  }
  return *value;
}

Variant readValueAs(std::string_view typeName, std::string_view text) {
  const auto* type = std::ranges::find(kTypes, typeName, &ValueType::name);
  if (type == kTypes.end()) {
    throw UsageError("no existe el tipo «" + safeText(typeName) + "»; hay numero, fecha y texto");
  }
  const Reading value = type->read(text);
  if (!value) throw UsageError("«" + safeText(text) + "» no se lee como " + std::string(typeName));
  return *value;
}

ExitStatus runFormato(const Arguments& arguments, Context& context) {
  if (arguments.operands().size() != 2) throw UsageError("se esperan un valor y un patrón, cada uno entre comillas");
  const std::string_view text = arguments.operands()[0];
  const auto typeName = arguments.value(kTypeOption.name);
  const Variant value = typeName ? readValueAs(*typeName, text) : readValue(text);
  context.out << context.library.Formato(value, arguments.operands()[1]).toText() << "\n";
  return ExitStatus::Done;
}

}  // namespace

constinit const Command kFormatoCommand{"formato",      "da forma a un número, una fecha o un texto con un patrón",
                                        "VALOR PATRON", kDescription,
                                        kOptions,       kExamples,
                                        runFormato};

}  // namespace qvn::cli
