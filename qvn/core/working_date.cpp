#include "qvn/core/working_date.h"

#include <chrono>

#include "qvn/core/messages.h"
#include "qvn/core/recordsets.h"
#include "qvn/host/require.h"

namespace qvn::core {
namespace {

constexpr std::int32_t kOtherMonth = 593;
constexpr std::int32_t kOtherYear = 594;
constexpr std::int32_t kInformation = 64;

bool mayUseAnyDate(const host::Ambiente& ambiente) {
  const auto rows = CreaRecordSet("SELECT camfecha FROM usuarios WHERE usuario = '" + ambiente.Usuario() + "'",
                                  host::required(ambiente.Conexion()));
  if (rows->Eof()) return false;
  const auto order = compare(rows->Fields("CamFecha").Value(), false);
  return order && *order != 0;  // Null grants nothing
}

}  // namespace

Date FechaDeTrabajo(std::int32_t nYear, std::int32_t Month, Clock& clock) {
  return Date::fromSerialParts(Variant(nYear).toInteger(), Month, clock.now().civil().day);
}

bool validaFechaDeTrabajo(Date dFecha, const host::AmbientePtr& Ambiente, const Variant& bolMensajes,
                          dialogs::Dialogs& dialogs) {
  const host::Ambiente& ambiente = *host::required(Ambiente);
  if (mayUseAnyDate(ambiente)) return true;
  const CivilDate day = dFecha.civil();
  const bool isMonth = day.month == ambiente.Mes();
  if (isMonth && day.year == ambiente.Ejercicio()) return true;
  if (equals(bolMensajes, true)) {
    CuadroDeMensajes(Mensaje(isMonth ? kOtherYear : kOtherMonth, Ambiente), kInformation, dialogs);
  }
  return false;
}

std::string mb(const data::ConnectionPtr& Connection) {
  const auto rows = CreaRecordSet("SELECT * FROM monedas WHERE base <> 0", Connection);
  return rows->Eof() ? std::string() : rows->Fields("moneda").Value().toText();
}

void Dormir(std::int32_t nMSegundos, Clock& clock) {
  if (nMSegundos > 0) clock.sleep(std::chrono::milliseconds(nMSegundos));
}

}  // namespace qvn::core
