#include "qvn/dialogs/ask.h"

#include "qvn/base/runtime_error.h"
#include "qvn/dialogs/captions.h"

namespace qvn::dialogs {

void MyMessage(std::string_view strMensaje, Dialogs& dialogs) { dialogs.message(strMensaje); }

void Alerta(std::string_view strMensaje, Dialogs& dialogs) { dialogs.alert(strMensaje); }

bool Question(std::string_view strMensaje, std::int16_t DefaultButton, Dialogs& dialogs) {
  return dialogs.question(strMensaje, DefaultButton == 1 ? 1 : 2) == 1;
}

std::int16_t Question2(std::string_view strMensaje, std::int16_t DefaultButton, Dialogs& dialogs) {
  if (DefaultButton < 1 || DefaultButton > static_cast<std::int16_t>(kChoiceButtons.size())) {
    throw RuntimeError(error_number::kSubscriptOutOfRange,
                       "No hay un botón " + std::to_string(DefaultButton) + "; DefaultButton va de 1 a 4");
  }
  return dialogs.choice(strMensaje, DefaultButton);
}

std::int16_t MyMessage2(std::string_view /*strMensaje*/, std::int16_t /*DefaultButton*/) { return 0; }

std::string MyInputBox(std::string_view strMensaje, Dialogs& dialogs) { return dialogs.entry(strMensaje).value_or(""); }

std::string MyInputPasswordBox(std::string_view strMensaje, const host::AmbientePtr& Ambiente, Dialogs& dialogs) {
  return dialogs.password(strMensaje, Ambiente).value_or("");
}

void MuestraVentanaDeAyuda(const std::shared_ptr<Object>& /*Forma*/, const host::AmbientePtr& /*Ambiente*/) {}

}  // namespace qvn::dialogs
