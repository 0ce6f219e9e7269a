// Messages by number, in the language of the station.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "qvn/dialogs/dialogs.h"
#include "qvn/host/ambiente.h"

namespace qvn::core {

/// The text of message `nId` in the environment's language, from the table mensajes of the local configuration
/// database; "" when there is none. An environment without a language gets "ESP01", which stays in it.
///
/// @throws RuntimeError   91 without an environment or a local connection, 94 when the text is Null
/// @throws ProviderError  what the engine reports, as for a missing table
std::string Mensaje(std::int32_t nId, const host::AmbientePtr& Ambiente);

/// Shows a message. `nTipo` says nothing.
void CuadroDeMensajes(std::string_view cMensaje, std::int32_t nTipo, dialogs::Dialogs& dialogs);

}  // namespace qvn::core
