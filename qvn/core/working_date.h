// The date under which a station works, and the currency in which its books are kept.
#pragma once

#include <cstdint>
#include <string>

#include "qvn/base/clock.h"
#include "qvn/base/date.h"
#include "qvn/data/connection.h"
#include "qvn/dialogs/dialogs.h"
#include "qvn/host/ambiente.h"

namespace qvn::core {

/// Today's day in another month; a day that the month does not have rolls into the next one.
/// @throws RuntimeError  6 for a year beyond 16 bits, 5 for a date outside the calendar
Date FechaDeTrabajo(std::int32_t nYear, std::int32_t Month, Clock& clock);

/// Whether a user may work under a date: any date with the right to it (usuarios.camfecha), else those of the
/// environment's month and year. A refusal is shown when `bolMensajes` is exactly True: message 593 for another month,
/// 594 for another year.
///
/// @throws RuntimeError   91 without an environment or a connection
/// @throws ProviderError  what the engine reports
bool validaFechaDeTrabajo(Date dFecha, const host::AmbientePtr& Ambiente, const Variant& bolMensajes,
                          dialogs::Dialogs& dialogs);

/// Code of the base currency: the first row of monedas whose `base` is not 0; "" when there is none.
/// @throws RuntimeError   91 without a connection, 94 when the code is Null
/// @throws ProviderError  what the engine reports
std::string mb(const data::ConnectionPtr& Connection);

/// Waits that many milliseconds; not at all for 0 or less.
void Dormir(std::int32_t nMSegundos, Clock& clock);

}  // namespace qvn::core
