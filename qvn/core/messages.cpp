#include "qvn/core/messages.h"

#include "qvn/core/recordsets.h"
#include "qvn/dialogs/ask.h"
#include "qvn/host/require.h"
#include "qvn/text/padding.h"

namespace qvn::core {
namespace {

constexpr std::string_view kDefaultLanguage = "ESP01";

}  // namespace

std::string Mensaje(std::int32_t nId, const host::AmbientePtr& Ambiente) {
  host::Ambiente& ambiente = *host::required(Ambiente);
  const data::ConnectionPtr local = host::required(ambiente.ConexionLocal());
  if (text::clEmpty(ambiente.Lenguaje())) ambiente.setLenguaje(kDefaultLanguage);
  const auto rows = CreaRecordSet(
      "SELECT * FROM mensajes WHERE id = " + std::to_string(nId) + " AND lenguaje = '" + ambiente.Lenguaje() + "'",
      local);
  std::string message;
  if (!rows->Eof()) message = rows->Fields("Mensaje").Value().toText();
  rows->Close();
  return message;
}

void CuadroDeMensajes(std::string_view cMensaje, std::int32_t /*nTipo*/, dialogs::Dialogs& dialogs) {
  dialogs::MyMessage(cMensaje, dialogs);
}

}  // namespace qvn::core
