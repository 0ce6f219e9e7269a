// qvn calendario: what the calendar methods say of a date.
#include <array>
#include <string>

#include "apps/qvn/commands.h"
#include "apps/qvn/terminal_text.h"
#include "qvn/base/clock.h"
#include "qvn/base/date_text.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Dice de FECHA (hoy, si falta) el día y el mes con letra, los meses vecinos, el
primero y el último día del mes, la misma fecha un mes después, si el año es
bisiesto y los minutos desde el 1 de enero de 2000. Cada renglón nombra el
método que lo da. FECHA se lee y las fechas se escriben con su configuración
regional; AAAA-MM-DD se lee siempre.

Las reglas son las del sistema: es bisiesto todo año que se divide entre 4,
también 1900 y 2100, y un día que no existe pasa al mes siguiente (un mes
después del 29 de enero de 2023 es el 1 de marzo). El lunes de la semana se
cuenta desde hoy: para otra fecha es hoy menos los días que esa fecha lleva
desde su lunes.
)";

constexpr std::string_view kExamples = R"(
  qvn calendario
      hoy
  qvn calendario 2023-02-15
      el último día de ese mes es el 28
  qvn calendario --hora 13:30 2000-01-02
      los minutos son 2250: un día, 13 horas y media
)";

constexpr Option kTimeOption{"hora", 0, "HH:MM", "la hora que se suma a los minutos"};
constexpr auto kOptions = std::to_array<Option>({kTimeOption});

Date givenDate(const Arguments& arguments) {
  const auto& operands = arguments.operands();
  if (operands.size() > 1) {
    throw UsageError("se espera una sola fecha");
  }
  if (operands.empty()) {
    return Date(systemClock()->now().dayNumber());
  }
  const auto date = parseDate(operands.front());
  if (!date) {
    throw UsageError("«" + safeText(operands.front(), 40) + "» no se lee como fecha; pruebe con AAAA-MM-DD");
  }
  return *date;
}

void writeLine(Output& out, std::string_view label, const std::string& value, std::string_view method) {
  constexpr std::size_t kLabelColumns = 20;
  constexpr std::size_t kValueColumns = 24;
  const auto pad = [&out](std::string_view text, std::size_t columns) {
    const std::size_t width = displayWidth(text);
    out << text << std::string(width < columns ? columns - width : 1, ' ');
  };
  pad(label, kLabelColumns);
  pad(value, kValueColumns);
  out << method << "\n";
}

ExitStatus runCalendario(const Arguments& arguments, Context& context) {
  const Date date = givenDate(arguments);
  const std::string_view time = arguments.value(kTimeOption.name).value_or("");
  const LumLibreria& library = context.library;
  const CivilDate civil = date.civil();
  const auto month = static_cast<std::int16_t>(civil.month);
  const auto year = static_cast<std::int16_t>(civil.year);
  const auto dated = [&library](Date day) { return Variant(day).toText() + " " + library.Dia(day); };
  std::int32_t yearOfNext = civil.year;

  const auto line = [&context](std::string_view label, const std::string& value, std::string_view method) {
    writeLine(context.out, label, value, method);
  };
  line("fecha", dated(date), "Dia");
  line("mes", library.Mes(month), "Mes");
  line("mes anterior", library.Mes(library.MesAnterior(month)), "MesAnterior");
  line("mes siguiente", library.Mes(library.MesSiguiente(month)), "MesSiguiente");
  line("primer día del mes", dated(library.Ud(month, year)), "Ud");
  line("último día del mes", dated(library.Ud(month, year, true)), "Ud");
  line("un mes después", dated(library.ElSiguienteMes(month, static_cast<std::int16_t>(civil.day), yearOfNext)),
       "ElSiguienteMes");
  line("lunes de la semana", dated(library.PrimerDiaDelaSemana(date)), "PrimerDiaDelaSemana");
  line("bisiesto", library.biciesto(year) ? "sí" : "no", "biciesto");
  line("minutos desde 2000", std::to_string(library.DateTimeSerial(date, time)), "DateTimeSerial");
  return ExitStatus::Done;
}

}  // namespace

constinit const Command kCalendarioCommand{
    "calendario", "dice de una fecha el día, el mes y sus vecinos", "[FECHA]", kDescription, kOptions, kExamples,
    runCalendario};

}  // namespace qvn::cli
