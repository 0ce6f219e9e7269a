// Months and weekdays in Spanish, steps between months, and dates packed as minutes.
//
//   Mes(2) == "Febrero";  Ud(2, 2023, true) is 28 February 2023;  MesSiguiente(12) == 1
//
// A year is a leap year whenever 4 divides it, 1900 and 2100 too. Dates are packed as the platform does: days beyond a
// month's length roll into the next one, years 0 to 99 are expanded (Date::fromSerialParts); error 5 outside the years
// 100 to 9999.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "qvn/base/clock.h"
#include "qvn/base/date.h"
#include "qvn/host/ambiente.h"

namespace qvn::text {

/// "Enero" to "Diciembre"; "" outside 1 to 12.
std::string Mes(std::int16_t nMes);

/// "Lunes" to "Domingo", without accents. Throws RuntimeError 5 for a date outside the range of dates.
std::string Dia(Date dFecha);

/// The month before, 12 before 1; 0 outside 1 to 12.
std::int16_t MesAnterior(std::int16_t nMes);

/// The month after, 1 after 12; 0 outside 1 to 12.
std::int16_t MesSiguiente(std::int16_t nMes);

/// True exactly when 4 divides the year.
bool biciesto(std::int16_t nYear);

/// The first day of the month, or its last day; day zero (30 December 1899) for a month outside 1 to 12. The last day
/// of February 1900 and 2100 rolls over to 1 March, as those count as leap years.
Date Ud(std::int16_t nMes, std::int16_t nYear, bool bolUltimo = false);

/// The day `nDia` of the month after `nMes`, cut to 30 in months of 30 days, and to 28 or 29 in February when it is
/// above 29: 29 February of other years is 1 March. Day zero for a month outside 1 to 12.
///
/// @param nYear  of `nMes`; becomes the next year after December, also when the packing then fails
/// @throws RuntimeError  5 for a date out of range, 6 when the year would pass 32 bits
Date ElSiguienteMes(std::int16_t nMes, std::int16_t nDia, std::int32_t& nYear);

/// Today less the days from Monday to the weekday of `dFecha`: this week's Monday when `dFecha` is of today's weekday.
/// Hosts rely on today's date being the one that is counted back from.
Date PrimerDiaDelaSemana(Date dFecha, Clock& clock);

/// Minutes from 1 January 2000, 00:00 to `dFecha`, plus 60 x hours + minutes of `tTiempo`. The hours are its first two
/// characters, the minutes all from the fourth on; each is read by Val2 (0 when it is no number) and rounded half to
/// even. Throws RuntimeError 6 beyond 32 bits, 5 for a date out of range.
std::int32_t DateTimeSerial(Date dFecha, std::string_view tTiempo);

/// The time of day in the regional form: "10:42:07".
std::string TimeLocal(Clock& clock);

/// Always true: hosts ask it before they accept a date.
bool ValidaFecha(Date dFecha, const host::AmbientePtr& Ambiente, bool bolMensajes = true);

}  // namespace qvn::text
