#include "qvn/lumlibreria.h"

#include <utility>

#include "qvn/barcode/ean.h"
#include "qvn/barcode/library_pictures.h"
#include "qvn/core/access_database.h"
#include "qvn/core/consecutive.h"
#include "qvn/core/date_literal.h"
#include "qvn/core/environment.h"
#include "qvn/core/error_handler.h"
#include "qvn/core/existence.h"
#include "qvn/core/messages.h"
#include "qvn/core/network_link.h"
#include "qvn/core/pending_statements.h"
#include "qvn/core/recordsets.h"
#include "qvn/core/saved_recordset.h"
#include "qvn/core/session_values.h"
#include "qvn/core/working_date.h"
#include "qvn/data/drivers/built_in.h"
#include "qvn/devices/links/process_link.h"
#include "qvn/dialogs/ask.h"
#include "qvn/dialogs/default_dialogs.h"
#include "qvn/ledger/lots.h"
#include "qvn/ledger/orders.h"
#include "qvn/ledger/payables.h"
#include "qvn/ledger/price_history.h"
#include "qvn/ledger/receivables.h"
#include "qvn/ledger/stock.h"
#include "qvn/mysqladmin/database_backup.h"
#include "qvn/mysqladmin/table_repair.h"
#include "qvn/rowtext/read_record.h"
#include "qvn/rowtext/write_record.h"
#include "qvn/system/dos_outputs.h"
#include "qvn/system/shell.h"
#include "qvn/system/text_file.h"
#include "qvn/text/account.h"
#include "qvn/text/amount_in_words.h"
#include "qvn/text/arithmetic.h"
#include "qvn/text/calendar.h"
#include "qvn/text/decimal_text.h"
#include "qvn/text/keystrokes.h"
#include "qvn/text/padding.h"
#include "qvn/text/pattern.h"
#include "qvn/text/replace.h"
#include "qvn/text/scrambling.h"
#include "qvn/text/search.h"
#include "qvn/text/split.h"
#include "qvn/text/statistics.h"
#include "qvn/text/text_box_format.h"

namespace qvn {

LumLibreria::LumLibreria() : LumLibreria(dialogs::defaultDialogs()) {}

LumLibreria::LumLibreria(dialogs::DialogsPtr dialogs, ClockPtr clock, RandomPtr random)
    : dialogs_(std::move(dialogs)), clock_(std::move(clock)), random_(std::move(random)) {
  data::registerBuiltInDrivers();
}

data::RecordsetPtr LumLibreria::CreaRecordSet(std::string_view strSQL, const ConnectionPtr& Connection,
                                              bool porPantalla) const {
  return core::CreaRecordSet(strSQL, Connection, porPantalla);
}
data::RecordsetPtr LumLibreria::CreaRecordSetEnCliente(std::string_view strSQL, const ConnectionPtr& Connection) const {
  return core::CreaRecordSetEnCliente(strSQL, Connection);
}
data::RecordsetPtr LumLibreria::RecordWrite(std::string_view strSQL, const ConnectionPtr& Connection) const {
  return core::RecordWrite(strSQL, Connection);
}
data::RecordsetPtr LumLibreria::RstRO(std::string_view strSQL, const ConnectionPtr& Connection,
                                      bool bolPantalla) const {
  return core::RstRO(strSQL, Connection, bolPantalla);
}
data::RecordsetPtr LumLibreria::FastRst(std::string_view strSQL, const ConnectionPtr& Connection) const {
  return core::FastRst(strSQL, Connection);
}
data::RecordsetPtr LumLibreria::LoadRsFromXML(std::string_view fullpath) const { return core::LoadRsFromXML(fullpath); }

std::int32_t LumLibreria::LastRec(std::string_view strTabla, const ConnectionPtr& Connection) const {
  return core::LastRec(strTabla, Connection);
}
bool LumLibreria::Existen(std::string_view Tabla, const ConnectionPtr& Connection) const {
  return core::Existen(Tabla, Connection);
}
bool LumLibreria::Existe(std::string_view cCampo, std::string_view cTabla, const Variant& value,
                         const ConnectionPtr& Conexion, bool Numeric) const {
  return core::Existe(cCampo, cTabla, value, Conexion, Numeric);
}
bool LumLibreria::ExisteCampo(std::string_view cCampo, std::string_view cTabla, const ConnectionPtr& Connection) const {
  return core::ExisteCampo(cCampo, cTabla, Connection);
}
double LumLibreria::lastInsertedId(const ConnectionPtr& Connection) const { return core::lastInsertedId(Connection); }

std::string LumLibreria::FechaSQL(const Variant& dFecha, const ConnectionPtr& Connection) const {
  return core::FechaSQL(dFecha, Connection);
}
data::ConnectionPtr LumLibreria::AbreConnection(std::string_view cBase) const { return core::AbreConnection(cBase); }

void LumLibreria::MyMessage(std::string_view strMensaje) const { dialogs::MyMessage(strMensaje, *dialogs_); }
void LumLibreria::Alerta(std::string_view strMensaje) const { dialogs::Alerta(strMensaje, *dialogs_); }
bool LumLibreria::Question(std::string_view strMensaje, std::int16_t DefaultButton) const {
  return dialogs::Question(strMensaje, DefaultButton, *dialogs_);
}
std::int16_t LumLibreria::Question2(std::string_view strMensaje, std::int16_t DefaultButton) const {
  return dialogs::Question2(strMensaje, DefaultButton, *dialogs_);
}
std::int16_t LumLibreria::MyMessage2(std::string_view strMensaje, std::int16_t DefaultButton) const {
  return dialogs::MyMessage2(strMensaje, DefaultButton);
}
std::string LumLibreria::MyInputBox(std::string_view strMensaje) const {
  return dialogs::MyInputBox(strMensaje, *dialogs_);
}
std::string LumLibreria::MyInputPasswordBox(std::string_view strMensaje, const host::AmbientePtr& Ambiente) const {
  return dialogs::MyInputPasswordBox(strMensaje, Ambiente, *dialogs_);
}
void LumLibreria::MuestraVentanaDeAyuda(const std::shared_ptr<Object>& Forma, const host::AmbientePtr& Ambiente) const {
  dialogs::MuestraVentanaDeAyuda(Forma, Ambiente);
}
std::string LumLibreria::TecladoVirtualV2(std::string_view strTexto) const { return dialogs_->keyboard(strTexto); }

std::string LumLibreria::Mensaje(std::int32_t nId, const host::AmbientePtr& Ambiente) const {
  return core::Mensaje(nId, Ambiente);
}
void LumLibreria::CuadroDeMensajes(std::string_view cMensaje, std::int32_t nTipo) const {
  core::CuadroDeMensajes(cMensaje, nTipo, *dialogs_);
}
void LumLibreria::SetSessionValue(const host::AmbientePtr& Ambiente, const Variant& key, const Variant& value) const {
  core::SetSessionValue(Ambiente, key, value);
}
Variant LumLibreria::GetSessionValue(const host::AmbientePtr& Ambiente, const Variant& key) const {
  return core::GetSessionValue(Ambiente, key);
}
Date LumLibreria::FechaDeTrabajo(std::int32_t nYear, std::int32_t Month) const {
  return core::FechaDeTrabajo(nYear, Month, *clock_);
}
bool LumLibreria::validaFechaDeTrabajo(Date dFecha, const host::AmbientePtr& Ambiente,
                                       const Variant& bolMensajes) const {
  return core::validaFechaDeTrabajo(dFecha, Ambiente, bolMensajes, *dialogs_);
}
std::string LumLibreria::mb(const ConnectionPtr& Connection) const { return core::mb(Connection); }
void LumLibreria::Dormir(std::int32_t nMSegundos) const { core::Dormir(nMSegundos, *clock_); }

bool LumLibreria::Err_Handler(const host::AmbientePtr& Ambiente, std::string_view ModuleName, std::string_view ProcName,
                              std::string_view ErrorDesc, std::int32_t errNumber) const {
  return core::Err_Handler(Ambiente, ModuleName, ProcName, ErrorDesc, errNumber, *dialogs_, *clock_);
}
void LumLibreria::Agregar(const RecordsetPtr& rst) const { core::Agregar(rst, *dialogs_); }
void LumLibreria::flushQueryCollection(const host::QueryPtr& Query, host::PendingStatementsHost& host) const {
  core::flushQueryCollection(Query, host);
}

std::int32_t LumLibreria::ShellRun(const Variant& window, std::string_view operation, std::string_view file,
                                   std::string_view parameters, std::string_view directory,
                                   std::int32_t showCommand) const {
  return system::ShellRun(window, operation, file, parameters, directory, showCommand);
}
void LumLibreria::ShellCommand(std::string_view command, const Variant& windowStyle) const {
  system::ShellCommand(command, windowStyle);
}
void LumLibreria::CommandToFile(std::string_view commandLine, const Variant& fileName) const {
  system::CommandToFile(commandLine, fileName);
}
void LumLibreria::Out(const Variant& fileName, const Variant& text) const { system::Out(fileName, text); }
void LumLibreria::OutLine(const Variant& fileName, const Variant& text) const { system::OutLine(fileName, text); }
void LumLibreria::OutFile(const Variant& fileName, const Variant& text) const { system::OutFile(fileName, text); }

std::int32_t LumLibreria::TraeSiguiente(std::string_view Campo, const ConnectionPtr& Connection,
                                        const Variant& nErrores, host::QueryPtr& Query) const {
  return core::TraeSiguiente(Campo, Connection, nErrores, Query);
}
std::int32_t LumLibreria::TraeSiguienteConfig(std::string_view Campo, const std::shared_ptr<Object>& SQLite) const {
  return core::TraeSiguienteConfig(Campo, SQLite);
}
std::int32_t LumLibreria::TraePosibleSiguiente(std::string_view Campo, const ConnectionPtr& Connection) const {
  return core::TraePosibleSiguiente(Campo, Connection);
}
std::int32_t LumLibreria::TraeSiguienteSeguro(std::string_view Campo, const ConnectionPtr& Connection) const {
  return core::TraeSiguienteSeguro(Campo, Connection);
}

bool LumLibreria::Conectar() const { return core::Conectar(*core::systemNetworkLinks()); }
bool LumLibreria::IsConnected() const { return core::IsConnected(*core::systemNetworkLinks(), *dialogs_); }
std::string LumLibreria::GetUserNameW() const { return core::GetUserNameW(); }
double LumLibreria::OsVersion() const { return core::OsVersion(); }
bool LumLibreria::IsDevEnv() const { return core::IsDevEnv(); }
std::string LumLibreria::getMyName() const { return core::getMyName(); }
Variant LumLibreria::EmptySys(const Variant& value) const { return core::EmptySys(value); }

std::shared_ptr<host::FileSystemObject> LumLibreria::NewFso() const {
  return std::make_shared<host::FileSystemObject>();
}
host::QueryPtr LumLibreria::NewQuery() const { return std::make_shared<host::Query>(); }
std::shared_ptr<host::Collection> LumLibreria::NewCollection() const { return std::make_shared<host::Collection>(); }
data::ConnectionPtr LumLibreria::NewSQLite() const {
  auto connection = data::Connection::create();
  connection->setConnectionString("Provider=SQLite;");
  return connection;
}
exports::SpreadsheetExportPtr LumLibreria::NewExcel() const { return std::make_shared<exports::SpreadsheetExport>(); }
std::shared_ptr<dialogs::Progress> LumLibreria::NewProgress() const { return std::make_shared<dialogs::Progress>(); }
reports::ReportPtr LumLibreria::NewInforme() const { return std::make_shared<reports::Report>(); }
std::shared_ptr<reports::ReportDefinition> LumLibreria::nuevoReporteador() const {
  return std::make_shared<reports::ReportDefinition>();
}
std::shared_ptr<system::Ping> LumLibreria::NewPing() const { return std::make_shared<system::Ping>(); }
std::shared_ptr<devices::QvnMobile> LumLibreria::NewMobile() const {
  return std::make_shared<devices::QvnMobile>(devices::deviceLink());
}

std::string LumLibreria::SeparadorDecimal() const { return text::SeparadorDecimal(); }
std::string LumLibreria::FormatoDecimal(double uValue) const { return text::FormatoDecimal(uValue); }
double LumLibreria::Fn(std::string_view strValue) const { return text::Fn(strValue); }
double LumLibreria::Val2(const Variant& uDato) const { return text::Val2(uDato); }
Variant LumLibreria::Formato(const Variant& Var, const Variant& strFormat) const {
  return text::Formato(Var, strFormat);
}

double LumLibreria::Sqr2(const Variant& nDato) const { return text::Sqr2(nDato); }
double LumLibreria::Max(double nNumero1, double nNumero2) const { return text::Max(nNumero1, nNumero2); }
double LumLibreria::Min(double nNumero1, double nNumero2) const { return text::Min(nNumero1, nNumero2); }
bool LumLibreria::bolValue(std::int16_t nValue) const { return text::bolValue(nValue); }
std::int16_t LumLibreria::bolInt(bool bolValue) const { return text::bolInt(bolValue); }

std::string LumLibreria::PadR(const Variant& str, const Variant& nVeces) const { return text::PadR(str, nVeces); }
std::string LumLibreria::PadL(Variant& str, const Variant& nVeces) const { return text::PadL(str, nVeces); }
std::string LumLibreria::Replicate(std::string_view cChar, std::int32_t nVeces) const {
  return text::Replicate(cChar, nVeces);
}
std::string LumLibreria::strCero(std::int32_t nNumero, std::int16_t nCeros) const {
  return text::strCero(nNumero, nCeros);
}
bool LumLibreria::clEmpty(std::string_view cDato) const { return text::clEmpty(cDato); }
std::string LumLibreria::cNull(const Variant& uDato) const { return text::cNull(uDato); }

std::int32_t LumLibreria::At(const Variant& strSearch, std::string_view strText) const {
  return text::At(strSearch, strText);
}
std::int32_t LumLibreria::clAt(const Variant& strSearch, std::string_view strText) const {
  return text::clAt(strSearch, strText);
}
std::string LumLibreria::Inserta(std::string_view cInserta, std::string_view cBusca, std::string_view cTarget) const {
  return text::Inserta(cInserta, cBusca, cTarget);
}
std::string LumLibreria::Cambia(std::string_view cInserta, std::string_view cBusca, std::string& cTarget) const {
  return text::Cambia(cInserta, cBusca, cTarget);
}
Variant LumLibreria::ReplaceString(std::string_view strSearch, std::string_view strSearchFor,
                                   std::string_view strReplaceWith) const {
  return text::ReplaceString(strSearch, strSearchFor, strReplaceWith);
}
std::int32_t LumLibreria::DataSeparator(const Variant& Separator, Variant& strSearch,
                                        std::vector<Variant>& List) const {
  return text::DataSeparator(Separator, strSearch, List);
}
std::int32_t LumLibreria::Separador(std::string_view Separator, std::string& strSearch,
                                    std::vector<std::string>& List) const {
  return text::Separador(Separator, strSearch, List);
}

std::string LumLibreria::WsRecordSet(const data::RecordsetPtr& rst) const { return rowtext::WsRecordSet(rst); }
std::shared_ptr<host::Collection> LumLibreria::WsFields(std::string_view strWinsock) const {
  return rowtext::WsFields(strWinsock);
}
rowtext::WsFieldPtr LumLibreria::newData(std::string_view strKey, const Variant& uData) const {
  return rowtext::newData(strKey, uData);
}
std::shared_ptr<rowtext::TextData> LumLibreria::NewTextData() const { return rowtext::NewTextData(); }

std::int16_t LumLibreria::ToNumber(std::int16_t& KeyAscii, const host::TextBox& Control, bool bolDecimales) const {
  return text::ToNumber(KeyAscii, Control, bolDecimales);
}
std::int16_t LumLibreria::UEspecial(std::int16_t& KeyAscii, const host::TextBox& Control) const {
  return text::UEspecial(KeyAscii, Control);
}
std::string LumLibreria::AplicaFormato(host::TextBox& Text, const host::AmbientePtr& Ambiente,
                                       std::string_view Formato) const {
  return text::AplicaFormato(Text, Ambiente.get(), Formato);
}

std::string LumLibreria::FormateaCuenta(std::string_view cCuenta, std::int32_t nNiveles, std::int32_t nNivel1,
                                        std::int32_t nNivel2, std::int32_t nNivel3, std::int32_t nNivel4,
                                        std::int32_t nNivel5) const {
  return text::FormateaCuenta(cCuenta, nNiveles, nNivel1, nNivel2, nNivel3, nNivel4, nNivel5);
}
std::int32_t LumLibreria::NivelDeCuenta(const Variant& cCuentaNivel1, const Variant& cCuentaNivel2,
                                        const Variant& cCuentaNivel3, const Variant& cCuentaNivel4,
                                        const Variant& cCuentaNivel5) const {
  return text::NivelDeCuenta(cCuentaNivel1, cCuentaNivel2, cCuentaNivel3, cCuentaNivel4, cCuentaNivel5);
}

std::string LumLibreria::PonLetra(double& Numero, std::string& Leyenda, bool bolDecimales,
                                  std::string_view strMoneda) const {
  return text::PonLetra(Numero, Leyenda, bolDecimales, strMoneda);
}

std::string LumLibreria::Mes(std::int16_t nMes) const { return text::Mes(nMes); }
std::string LumLibreria::Dia(Date dFecha) const { return text::Dia(dFecha); }
std::int16_t LumLibreria::MesAnterior(std::int16_t nMes) const { return text::MesAnterior(nMes); }
std::int16_t LumLibreria::MesSiguiente(std::int16_t nMes) const { return text::MesSiguiente(nMes); }
bool LumLibreria::biciesto(std::int16_t nYear) const { return text::biciesto(nYear); }
Date LumLibreria::Ud(std::int16_t nMes, std::int16_t nYear, bool bolUltimo) const {
  return text::Ud(nMes, nYear, bolUltimo);
}
Date LumLibreria::ElSiguienteMes(std::int16_t nMes, std::int16_t nDia, std::int32_t& nYear) const {
  return text::ElSiguienteMes(nMes, nDia, nYear);
}
Date LumLibreria::PrimerDiaDelaSemana(Date dFecha) const { return text::PrimerDiaDelaSemana(dFecha, *clock_); }
std::int32_t LumLibreria::DateTimeSerial(Date dFecha, std::string_view tTiempo) const {
  return text::DateTimeSerial(dFecha, tTiempo);
}
std::string LumLibreria::TimeLocal() const { return text::TimeLocal(*clock_); }
bool LumLibreria::ValidaFecha(Date dFecha, const host::AmbientePtr& Ambiente, bool bolMensajes) const {
  return text::ValidaFecha(dFecha, Ambiente, bolMensajes);
}

std::string LumLibreria::Encrypta(std::string_view cTexto, std::int16_t nLlave) const {
  return text::Encrypta(cTexto, nLlave);
}
std::string LumLibreria::Decrypta(std::string_view cTexto, std::int16_t nLlave) const {
  return text::Decrypta(cTexto, nLlave);
}
Variant LumLibreria::numeroAleatorio(std::int32_t upperbound, std::int32_t lowerbound) const {
  return text::numeroAleatorio(upperbound, lowerbound, *random_);
}
double LumLibreria::StdDev(const Variant& a) const { return text::StdDev(a); }
void LumLibreria::ShellSortAny(Variant& vArray, text::SortDirection SortOrder) const {
  text::ShellSortAny(vArray, SortOrder);
}

void LumLibreria::ActualizaSaldo(const Variant& nCobranza, const host::AmbientePtr& Ambiente,
                                 host::QueryPtr& Query) const {
  ledger::ActualizaSaldo(nCobranza, Ambiente, Query);
}
void LumLibreria::ActualizaSaldo(const Variant& nCobranza, const host::AmbientePtr& Ambiente) const {
  host::QueryPtr none;
  ledger::ActualizaSaldo(nCobranza, Ambiente, none);
}
void LumLibreria::ActualizaPorAplicar(const Variant& nAbono, const host::AmbientePtr& Ambiente,
                                      host::QueryPtr& Query) const {
  ledger::ActualizaPorAplicar(nAbono, Ambiente, Query);
}
void LumLibreria::ActualizaPorAplicar(const Variant& nAbono, const host::AmbientePtr& Ambiente) const {
  host::QueryPtr none;
  ledger::ActualizaPorAplicar(nAbono, Ambiente, none);
}
void LumLibreria::AfectaSaldoDeCliente(std::string_view cCliente, double nCantidad,
                                       const ConnectionPtr& Connection) const {
  ledger::AfectaSaldoDeCliente(cCliente, nCantidad, Connection);
}

void LumLibreria::ActualizaSaldoPagos(const Variant& nCuenxpag, const host::AmbientePtr& Ambiente) const {
  ledger::ActualizaSaldoPagos(nCuenxpag, Ambiente);
}
void LumLibreria::ActualizaCuenxpag(const Variant& nCuenxpag, const host::AmbientePtr& Ambiente) const {
  ledger::ActualizaCuenxpag(nCuenxpag, Ambiente);
}
void LumLibreria::ActualizaPorAplicarEnPagos(const Variant& nAbono, const host::AmbientePtr& Ambiente) const {
  ledger::ActualizaPorAplicarEnPagos(nAbono, Ambiente);
}
void LumLibreria::AfectaSaldoDeProveedor(std::string_view cProveedor, double nCantidad,
                                         const ConnectionPtr& Connection) const {
  ledger::AfectaSaldoDeProveedor(cProveedor, nCantidad, Connection);
}

void LumLibreria::ActualizaPorSurtirEnPedido(const Variant& cArticulo, std::int32_t nPartida, double nCantidad,
                                             std::int32_t nPedido, const host::AmbientePtr& Ambiente,
                                             bool bolAfectaArticulos, host::QueryPtr& Query) const {
  ledger::ActualizaPorSurtirEnPedido(cArticulo, nPartida, nCantidad, nPedido, Ambiente, bolAfectaArticulos, Query);
}
void LumLibreria::ActualizaPorSurtirEnPedido(const Variant& cArticulo, std::int32_t nPartida, double nCantidad,
                                             std::int32_t nPedido, const host::AmbientePtr& Ambiente,
                                             bool bolAfectaArticulos) const {
  host::QueryPtr none;
  ledger::ActualizaPorSurtirEnPedido(cArticulo, nPartida, nCantidad, nPedido, Ambiente, bolAfectaArticulos, none);
}
void LumLibreria::ActualizaPorSurtirEnOrden(const Variant& cArticulo, std::int32_t nPartida, double nCantidad,
                                            std::int32_t nPedido, const host::AmbientePtr& Ambiente,
                                            bool bolAfectaArticulos) const {
  ledger::ActualizaPorSurtirEnOrden(cArticulo, nPartida, nCantidad, nPedido, Ambiente, bolAfectaArticulos);
}
void LumLibreria::ActualizaPorSurtir(const host::AmbientePtr& Ambiente, std::string_view cArticulo,
                                     std::int32_t nPartida, double nCantidad, bool bolAfectaArticulos) const {
  ledger::ActualizaPorSurtir(Ambiente, cArticulo, nPartida, nCantidad, bolAfectaArticulos);
}
void LumLibreria::ActualizaPorRecibir(const host::AmbientePtr& Ambiente, std::string_view cArticulo,
                                      std::int32_t nPartida, double nCantidad, bool bolAfectaArticulos) const {
  ledger::ActualizaPorRecibir(Ambiente, cArticulo, nPartida, nCantidad, bolAfectaArticulos);
}

void LumLibreria::ActualizaApartadosPorVenta(const Variant& cArticulo, const Variant& nCantidad,
                                             const host::AmbientePtr& Ambiente) const {
  ledger::ActualizaApartadosPorVenta(cArticulo, nCantidad, Ambiente);
}
double LumLibreria::EnVenta(std::string_view strArticulo, std::int32_t nVenta, const Variant& nAlmacen,
                            const ConnectionPtr& Connection) const {
  return ledger::EnVenta(strArticulo, nVenta, nAlmacen, Connection);
}
double LumLibreria::PorSurtir(std::string_view strArticulo, const ConnectionPtr& Connection,
                              std::int32_t nPedido) const {
  return ledger::PorSurtir(strArticulo, Connection, nPedido);
}
bool LumLibreria::VerificaInventarioFisico(std::string_view cUbicacion, std::int16_t nAlmacen,
                                           const ConnectionPtr& Connection) const {
  return ledger::VerificaInventarioFisico(cUbicacion, nAlmacen, Connection);
}
bool LumLibreria::VerificaFisico(const host::AmbientePtr& Ambiente) const { return ledger::VerificaFisico(Ambiente); }

void LumLibreria::RegresaLotes(std::int32_t nSalida, const host::AmbientePtr& Ambiente) const {
  ledger::RegresaLotes(nSalida, Ambiente);
}
void LumLibreria::SalvaHistCamb(std::string_view Articulo, double precio1, double precio2, double precio3,
                                double precio4, double precio5, double precio6, double precio7, double precio8,
                                double precio9, double precio10, const host::AmbientePtr& Ambiente) const {
  ledger::SalvaHistCamb(Articulo,
                        {precio1, precio2, precio3, precio4, precio5, precio6, precio7, precio8, precio9, precio10},
                        Ambiente, clock_);
}

barcode::PicturePtr LumLibreria::Barcode128(std::int16_t zBarH, std::string_view BarText, bool HasCaption) const {
  return barcode::Barcode128(zBarH, BarText, HasCaption, *dialogs_);
}
barcode::PicturePtr LumLibreria::Barcode3de9(std::int16_t zBarH, std::string_view BarText, bool zWithCheckSum,
                                             bool HasCaption) const {
  return barcode::Barcode3de9(zBarH, BarText, zWithCheckSum, HasCaption, *dialogs_);
}
barcode::PicturePtr LumLibreria::BarcodeEAN13(std::int16_t zBarH, std::string_view BarText, bool HasCaption) const {
  return barcode::BarcodeEAN13(zBarH, BarText, HasCaption, *dialogs_);
}
barcode::PicturePtr LumLibreria::BarcodeEAN8(std::int16_t zBarH, std::string_view BarText, bool HasCaption) const {
  return barcode::BarcodeEAN8(zBarH, BarText, HasCaption, *dialogs_);
}
mysqladmin::BackupReport LumLibreria::DatabaseBackup(std::string_view strFileName, const ConnectionPtr& conn) const {
  return mysqladmin::DatabaseBackup(strFileName, conn, *clock_);
}
mysqladmin::RestoreReport LumLibreria::DatabaseRestore(std::string_view strFileName, const ConnectionPtr& conn) const {
  return mysqladmin::DatabaseRestore(strFileName, conn);
}
void LumLibreria::ReparaTabla(std::string_view text, const ConnectionPtr& Connection) const {
  mysqladmin::ReparaTabla(text, Connection, *dialogs_, *clock_);
}

std::int16_t LumLibreria::getEAN13ChekDigit(std::string_view text) const { return barcode::getEAN13ChekDigit(text); }
std::int16_t LumLibreria::getBarcodeData(const Variant& /*data*/) const { return 0; }

}  // namespace qvn
