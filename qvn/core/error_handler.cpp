#include "qvn/core/error_handler.h"

#include <string>
#include <vector>

#include "qvn/base/format_pattern.h"
#include "qvn/core/error_log.h"
#include "qvn/dialogs/ask.h"
#include "qvn/host/require.h"
#include "qvn/system/text_file.h"

namespace qvn::core {
namespace {

constexpr std::string_view kLostConnection =
    "Se ha desconectado a la base de datos debido a un problema de conexión en su red o el servidor ha sido detenido";
constexpr std::string_view kRowHeld =
    "No es posible actualizar el registro porque otro usuario lo esta usando o tiene dos ventanas con el mismo "
    "registro abiertas";
constexpr std::int32_t kInformationIcon = 64;
constexpr std::string_view kLineEnd = "\r\n";

// The last line has no end of its own.
std::string block(const data::ErrorItem& error) {
  std::string text = "Error #" + std::to_string(error.number) + " " + error.description;
  text.append(kLineEnd).append("NativeError: ").append(std::to_string(error.nativeError));
  text.append(kLineEnd).append("SQLState: ").append(error.sqlState);
  text.append(kLineEnd).append("Reported by: ").append(error.source);
  text.append(kLineEnd).append("Help file: ").append(error.helpFile);
  return text.append(kLineEnd).append("Help Context ID: ").append(std::to_string(error.helpContext));
}

std::string reportOf(const std::vector<data::ErrorItem>& errors) {
  std::string text;
  for (const data::ErrorItem& error : errors) {
    if (error.number == data::provider_number::kUnspecified && error.nativeError == data::kRowHeldNativeError) {
      return std::string(kRowHeld);
    }
    text += block(error);
  }
  return text;
}

}  // namespace

bool Err_Handler(const host::AmbientePtr& Ambiente, std::string_view ModuleName, std::string_view ProcName,
                 std::string_view ErrorDesc, std::int32_t errNumber, dialogs::Dialogs& dialogs, Clock& clock) {
  if (errNumber == data::provider_number::kUnspecified) {
    dialogs::MyMessage(kLostConnection, dialogs);
    return false;
  }
  const std::string text = errorRecordText(
      {formatValue(clock.now(), "hh:mm:ss"), std::string(ModuleName), std::string(ProcName), std::string(ErrorDesc)});
  dialogs::MyMessage(text, dialogs);
  const std::string folder = host::required(Ambiente)->CarpetaDeErrores();
  system::OutLine(errorLogPath(folder, clock.now()), text);
  return true;
}

void Agregar(const data::RecordsetPtr& rst, host::MessageBox& messages) {
  data::Recordset& rows = *host::required(rst);
  try {
    rows.Update();
  } catch (const RuntimeError&) {
    const data::ConnectionPtr connection = rows.ActiveConnection();
    messages.show(connection ? reportOf(connection->Errors()) : std::string(), kInformationIcon, {});
  }
}

}  // namespace qvn::core
