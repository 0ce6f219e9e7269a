#include "qvn/text/calendar.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include "qvn/base/date_text.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/text/decimal_text.h"

namespace qvn::text {
namespace {

constexpr std::int16_t kFebruary = 2;
constexpr std::int16_t kDecember = 12;
constexpr std::int16_t kLeapFebruaryDays = 29;
constexpr std::int32_t kFirstOf2000 = 36526;  // day number of 1 January 2000
constexpr double kMinutesPerDay = 1440;

struct Month {
  std::string_view name;
  std::int16_t days;  // of February those of other than leap years
};
constexpr auto kMonths = std::to_array<Month>({
    {"Enero", 31},
    {"Febrero", 28},
    {"Marzo", 31},
    {"Abril", 30},
    {"Mayo", 31},
    {"Junio", 30},
    {"Julio", 31},
    {"Agosto", 31},
    {"Septiembre", 30},
    {"Octubre", 31},
    {"Noviembre", 30},
    {"Diciembre", 31},
});
static_assert(kMonths.size() == kDecember);

constexpr auto kWeekdays =
    std::to_array<std::string_view>({"Domingo", "Lunes", "Martes", "Miercoles", "Jueves", "Viernes", "Sabado"});
static_assert(kWeekdays.size() == 7);

bool isMonth(std::int16_t month) { return month >= 1 && month <= kDecember; }

const Month& monthOf(std::int16_t month) { return kMonths[static_cast<std::size_t>(month - 1)]; }

bool isLeap(std::int32_t year) { return year % 4 == 0; }

std::int16_t daysIn(std::int16_t month, std::int32_t year) {
  return month == kFebruary && isLeap(year) ? kLeapFebruaryDays : monthOf(month).days;
}

double roundedValue(std::string_view text) { return std::nearbyint(Val2(text)); }

}  // namespace

std::string Mes(std::int16_t nMes) { return isMonth(nMes) ? std::string(monthOf(nMes).name) : std::string(); }

std::string Dia(Date dFecha) { return std::string(kWeekdays[static_cast<std::size_t>(dFecha.weekday() - 1)]); }

std::int16_t MesAnterior(std::int16_t nMes) {
  if (!isMonth(nMes)) {
    return 0;
  }
  return static_cast<std::int16_t>(nMes == 1 ? kDecember : nMes - 1);
}

std::int16_t MesSiguiente(std::int16_t nMes) {
  if (!isMonth(nMes)) {
    return 0;
  }
  return static_cast<std::int16_t>(nMes == kDecember ? 1 : nMes + 1);
}

bool biciesto(std::int16_t nYear) { return isLeap(nYear); }

Date Ud(std::int16_t nMes, std::int16_t nYear, bool bolUltimo) {
  if (!isMonth(nMes)) {
    return {};
  }
  return Date::fromSerialParts(nYear, nMes, bolUltimo ? daysIn(nMes, nYear) : 1);
}

Date ElSiguienteMes(std::int16_t nMes, std::int16_t nDia, std::int32_t& nYear) {
  if (!isMonth(nMes)) {
    return {};
  }
  const std::int16_t month = MesSiguiente(nMes);
  if (month == 1) {
    if (nYear == std::numeric_limits<std::int32_t>::max()) {
      throw RuntimeError(error_number::kOverflow);
    }
    ++nYear;
  }
  // Hosts know day 29 of a February that has 28 as 1 March; see ElSiguienteMes in the tests.
  const std::int16_t longest = month == kFebruary ? kLeapFebruaryDays : monthOf(month).days;
  return Date::fromSerialParts(nYear, month, nDia > longest && longest < 31 ? daysIn(month, nYear) : nDia);
}

Date PrimerDiaDelaSemana(Date dFecha, Clock& clock) {
  const int daysSinceMonday = (dFecha.weekday() + 5) % 7;
  return Date(clock.now().dayNumber() - daysSinceMonday);
}

std::int32_t DateTimeSerial(Date dFecha, std::string_view tTiempo) {
  const TimeOfDay time = dFecha.time();
  const double minutes = (dFecha.dayNumber() - kFirstOf2000) * kMinutesPerDay + time.hour * 60 + time.minute +
                         60 * roundedValue(utf8::left(tTiempo, 2)) + roundedValue(utf8::from(tTiempo, 3));
  using Limits = std::numeric_limits<std::int32_t>;
  if (minutes < Limits::min() || minutes > Limits::max()) {
    throw RuntimeError(error_number::kOverflow);
  }
  return static_cast<std::int32_t>(minutes);
}

std::string TimeLocal(Clock& clock) { return timeText(clock.now(), regionalSettings()); }

bool ValidaFecha(Date /*dFecha*/, const host::AmbientePtr& /*Ambiente*/, bool /*bolMensajes*/) { return true; }

}  // namespace qvn::text
