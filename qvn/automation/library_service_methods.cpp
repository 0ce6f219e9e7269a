#include "qvn/automation/method.h"
#include "qvn/automation/sections.h"

namespace qvn::automation {
namespace {

// Tells the host how far something has come.
class BridgedProgress final : public dialogs::ProgressView {
 public:
  explicit BridgedProgress(const Session& session) : session_(session) {}

  bool show(const dialogs::ProgressState& state) override {
    Json event = textEvent("ProgressState", state.text);
    event.add("title", toJson(state.title));
    event.add("done", state.done);
    event.add("total", state.total);
    session_.conversation.tell(event);
    return false;
  }

 private:
  const Session& session_;
};

std::shared_ptr<dialogs::Progress> newProgress(const Session& session) {
  return std::make_shared<dialogs::Progress>([&session] { return std::make_unique<BridgedProgress>(session); });
}

// With the events told to the host.
std::shared_ptr<system::Ping> newPing(const Session& session) {
  auto ping = session.library.NewPing();
  // A listener must not keep the object alive that keeps the listener.
  ping->onPingOK([&session, ping = ping.get()](std::int32_t& poSpeed) {
    Json event = objectEvent("PingOK", *ping, session);
    event.add("poSpeed", poSpeed);
    session.conversation.tell(event);
  });
  ping->onPingError([&session, ping = ping.get()](std::string_view peErrDescription) {
    Json event = objectEvent("PingError", *ping, session);
    event.add("peErrDescription", toJson(peErrDescription));
    session.conversation.tell(event);
  });
  return ping;
}

}  // namespace

// NOLINTNEXTLINE(readability-function-size): a table
std::vector<Section> serviceSections() {
  return {
      {"Dialogs",
       {"qvn/dialogs/ask.h"},
       {
           method<&LumLibreria::MyMessage>("MyMessage", "strMensaje"),
           method<&LumLibreria::Alerta>("Alerta", "strMensaje"),
           method<&LumLibreria::Question>("Question", "strMensaje", "DefaultButton=1"),
           method<&LumLibreria::Question2>("Question2", "strMensaje", "DefaultButton=1"),
           method<&LumLibreria::MyMessage2>("MyMessage2", "strMensaje", "DefaultButton=1"),
           method<&LumLibreria::MyInputBox>("MyInputBox", "strMensaje"),
           method<&LumLibreria::MyInputPasswordBox>("MyInputPasswordBox", "strMensaje", "Ambiente"),
           method<&LumLibreria::MuestraVentanaDeAyuda>("MuestraVentanaDeAyuda", "Forma", "Ambiente"),
           method<&LumLibreria::TecladoVirtualV2>("TecladoVirtualV2", "strTexto"),
       }},
      {"Messages, session values, working date",
       {"qvn/core/messages.h", "qvn/core/session_values.h", "qvn/core/working_date.h"},
       {
           method<&LumLibreria::Mensaje>("Mensaje", "nId", "Ambiente"),
           method<&LumLibreria::CuadroDeMensajes>("CuadroDeMensajes", "cMensaje", "nTipo"),
           method<&LumLibreria::SetSessionValue>("SetSessionValue", "Ambiente", "key", "value"),
           method<&LumLibreria::GetSessionValue>("GetSessionValue", "Ambiente", "key"),
           method<&LumLibreria::FechaDeTrabajo>("FechaDeTrabajo", "nYear", "Month"),
           method<&LumLibreria::validaFechaDeTrabajo>("validaFechaDeTrabajo", "dFecha", "Ambiente", "bolMensajes"),
           method<&LumLibreria::mb>("mb", "Connection"),
           method<&LumLibreria::Dormir>("Dormir", "nMSegundos"),
       }},
      {"Errors",
       {"qvn/core/error_handler.h", "qvn/core/pending_statements.h"},
       {
           method<&LumLibreria::Err_Handler>("Err_Handler", "Ambiente", "ModuleName", "ProcName", "ErrorDesc",
                                             "errNumber"),
           method<&LumLibreria::Agregar>("Agregar", "rst"),
           method<&LumLibreria::flushQueryCollection>("flushQueryCollection", "Query", "host"),
       }},
      {"Commands, documents and text files",
       {"qvn/system/dos_outputs.h", "qvn/system/shell.h", "qvn/system/text_file.h"},
       {
           method<&LumLibreria::ShellRun>("ShellRun", "window", "operation", "file", "parameters", "directory",
                                          "showCommand"),
           method<&LumLibreria::ShellCommand>("ShellCommand", "command", "windowStyle"),
           method<&LumLibreria::CommandToFile>("CommandToFile", "commandLine", "fileName"),
           method<&LumLibreria::Out>("Out", "fileName", "text"),
           method<&LumLibreria::OutLine>("OutLine", "fileName", "text"),
           method<&LumLibreria::OutFile>("OutFile", "fileName", "text"),
       }},
      {"Environment and network",
       {"qvn/core/environment.h", "qvn/core/network_link.h"},
       {
           method<&LumLibreria::Conectar>("Conectar"),
           method<&LumLibreria::IsConnected>("IsConnected"),
           method<&LumLibreria::GetUserNameW>("GetUserNameW"),
           method<&LumLibreria::OsVersion>("OsVersion"),
           method<&LumLibreria::IsDevEnv>("IsDevEnv"),
           method<&LumLibreria::getMyName>("getMyName"),
           method<&LumLibreria::EmptySys>("EmptySys", "value"),
       }},
      {"Factories",
       {"qvn/lumlibreria.h"},
       {
           method<&LumLibreria::NewFso>("NewFso"),
           method<&LumLibreria::NewQuery>("NewQuery"),
           method<&LumLibreria::NewCollection>("NewCollection"),
           method<&LumLibreria::NewSQLite>("NewSQLite"),
           method<&LumLibreria::NewExcel>("NewExcel"),
           method<&newProgress>("NewProgress"),
           method<&LumLibreria::NewInforme>("NewInforme"),
           method<&LumLibreria::nuevoReporteador>("nuevoReporteador"),
           method<&newPing>("NewPing"),
           method<&LumLibreria::NewMobile>("NewMobile"),
       }},
      {"Barcodes",
       {"qvn/barcode/library_pictures.h", "qvn/barcode/ean.h"},
       {
           method<&LumLibreria::Barcode128>("Barcode128", "zBarH", "BarText", "HasCaption"),
           method<&LumLibreria::Barcode3de9>("Barcode3de9", "zBarH", "BarText", "zWithCheckSum", "HasCaption"),
           method<&LumLibreria::BarcodeEAN13>("BarcodeEAN13", "zBarH", "BarText", "HasCaption"),
           method<&LumLibreria::BarcodeEAN8>("BarcodeEAN8", "zBarH", "BarText", "HasCaption"),
           method<&LumLibreria::getEAN13ChekDigit>("getEAN13ChekDigit", "text"),
           method<&LumLibreria::getBarcodeData>("getBarcodeData", "data"),
       }},
  };
}

}  // namespace qvn::automation
