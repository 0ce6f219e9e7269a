// The dialog methods that hosts call.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "qvn/dialogs/dialogs.h"

namespace qvn::dialogs {

/// Shows a text until the person closes it; `Alerta` without the icon.
void MyMessage(std::string_view strMensaje, Dialogs& dialogs);
void Alerta(std::string_view strMensaje, Dialogs& dialogs);

/// True when "Si" was pressed; False for "No" and for a dialog that was closed in another way. The focus is on "Si" for
/// a `DefaultButton` of 1, on "No" for any other.
bool Question(std::string_view strMensaje, std::int16_t DefaultButton, Dialogs& dialogs);

/// The number of the button that was pressed: 1 "Si", 2 "Si a todo", 3 "No", 4 "Cancelar"; 0 for a dialog that was
/// closed in another way. The focus is on button `DefaultButton`. Throws RuntimeError 9 when there is no such button.
std::int16_t Question2(std::string_view strMensaje, std::int16_t DefaultButton, Dialogs& dialogs);

/// Shows nothing and returns 0.
std::int16_t MyMessage2(std::string_view strMensaje, std::int16_t DefaultButton);

/// The line that the person typed and accepted, else "".
std::string MyInputBox(std::string_view strMensaje, Dialogs& dialogs);
std::string MyInputPasswordBox(std::string_view strMensaje, const host::AmbientePtr& Ambiente, Dialogs& dialogs);

/// Does nothing.
void MuestraVentanaDeAyuda(const std::shared_ptr<Object>& Forma, const host::AmbientePtr& Ambiente);

}  // namespace qvn::dialogs
