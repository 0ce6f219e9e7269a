// LumLibreria: the one object through which a host reaches the library.
//
//   qvn::LumLibreria library;
//   auto connection = qvn::data::Connection::create();
//   connection->Open("Provider=SQLite;Data Source=tienda.db");
//   auto ambiente = std::make_shared<qvn::host::SimpleAmbiente>(connection);
//   library.ActualizaSaldo(1042, ambiente);
//
// A host creates one and keeps it for the life of its process, on one thread. The object holds no connection: every
// database method receives the host's open connection, or the environment whose connection it is, for the length of the
// call. What each method does, writes back and raises stands with the function of the same name in the module named
// above each group.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qvn/barcode/picture.h"
#include "qvn/base/clock.h"
#include "qvn/base/date.h"
#include "qvn/base/random.h"
#include "qvn/base/variant.h"
#include "qvn/data/connection.h"
#include "qvn/devices/qvn_mobile.h"
#include "qvn/dialogs/dialogs.h"
#include "qvn/dialogs/progress.h"
#include "qvn/exports/spreadsheet.h"
#include "qvn/host/ambiente.h"
#include "qvn/host/collection.h"
#include "qvn/host/file_system_object.h"
#include "qvn/host/pending_statements.h"
#include "qvn/host/query.h"
#include "qvn/host/text_box.h"
#include "qvn/mysqladmin/backup_report.h"
#include "qvn/mysqladmin/database_restore.h"
#include "qvn/reports/definition.h"
#include "qvn/reports/report.h"
#include "qvn/rowtext/text_data.h"
#include "qvn/rowtext/ws_field.h"
#include "qvn/system/ping.h"
#include "qvn/text/shell_sort.h"

namespace qvn {

class LumLibreria {
 public:
  using ConnectionPtr = data::ConnectionPtr;
  using RecordsetPtr = data::RecordsetPtr;

  /// With windows when the host has them, else with the dialogs of the terminal.
  LumLibreria();
  explicit LumLibreria(dialogs::DialogsPtr dialogs, ClockPtr clock = systemClock(), RandomPtr random = pseudoRandom());

  // Recordsets: qvn/core/recordsets.h and saved_recordset.h

  RecordsetPtr CreaRecordSet(std::string_view strSQL, const ConnectionPtr& Connection, bool porPantalla = false) const;
  RecordsetPtr CreaRecordSetEnCliente(std::string_view strSQL, const ConnectionPtr& Connection) const;
  RecordsetPtr RecordWrite(std::string_view strSQL, const ConnectionPtr& Connection) const;
  RecordsetPtr RstRO(std::string_view strSQL, const ConnectionPtr& Connection, bool bolPantalla = false) const;
  RecordsetPtr FastRst(std::string_view strSQL, const ConnectionPtr& Connection) const;
  RecordsetPtr LoadRsFromXML(std::string_view fullpath) const;

  // Questions about tables, rows and fields: qvn/core/existence.h

  std::int32_t LastRec(std::string_view strTabla, const ConnectionPtr& Connection) const;
  bool Existen(std::string_view Tabla, const ConnectionPtr& Connection) const;
  bool Existe(std::string_view cCampo, std::string_view cTabla, const Variant& value, const ConnectionPtr& Conexion,
              bool Numeric = false) const;
  bool ExisteCampo(std::string_view cCampo, std::string_view cTabla, const ConnectionPtr& Connection) const;
  double lastInsertedId(const ConnectionPtr& Connection) const;

  // Dialects and Access files: qvn/core/date_literal.h and access_database.h

  std::string FechaSQL(const Variant& dFecha, const ConnectionPtr& Connection) const;
  ConnectionPtr AbreConnection(std::string_view cBase) const;

  // Dialogs: qvn/dialogs/ask.h

  void MyMessage(std::string_view strMensaje) const;
  void Alerta(std::string_view strMensaje) const;
  bool Question(std::string_view strMensaje, std::int16_t DefaultButton = 1) const;
  std::int16_t Question2(std::string_view strMensaje, std::int16_t DefaultButton = 1) const;
  std::int16_t MyMessage2(std::string_view strMensaje, std::int16_t DefaultButton = 1) const;
  std::string MyInputBox(std::string_view strMensaje) const;
  std::string MyInputPasswordBox(std::string_view strMensaje, const host::AmbientePtr& Ambiente) const;
  void MuestraVentanaDeAyuda(const std::shared_ptr<Object>& Forma, const host::AmbientePtr& Ambiente) const;
  std::string TecladoVirtualV2(std::string_view strTexto) const;

  // Messages, session values, working date: qvn/core/messages.h, session_values.h and working_date.h

  std::string Mensaje(std::int32_t nId, const host::AmbientePtr& Ambiente) const;
  void CuadroDeMensajes(std::string_view cMensaje, std::int32_t nTipo) const;
  void SetSessionValue(const host::AmbientePtr& Ambiente, const Variant& key, const Variant& value) const;
  Variant GetSessionValue(const host::AmbientePtr& Ambiente, const Variant& key) const;
  Date FechaDeTrabajo(std::int32_t nYear, std::int32_t Month) const;
  bool validaFechaDeTrabajo(Date dFecha, const host::AmbientePtr& Ambiente, const Variant& bolMensajes) const;
  std::string mb(const ConnectionPtr& Connection) const;
  void Dormir(std::int32_t nMSegundos) const;

  // Errors: qvn/core/error_handler.h and pending_statements.h

  bool Err_Handler(const host::AmbientePtr& Ambiente, std::string_view ModuleName, std::string_view ProcName,
                   std::string_view ErrorDesc, std::int32_t errNumber) const;
  void Agregar(const RecordsetPtr& rst) const;
  void flushQueryCollection(const host::QueryPtr& Query, host::PendingStatementsHost& host) const;

  // Commands, documents and text files: qvn/system/dos_outputs.h, shell.h and text_file.h

  std::int32_t ShellRun(const Variant& window, std::string_view operation, std::string_view file,
                        std::string_view parameters, std::string_view directory, std::int32_t showCommand) const;
  void ShellCommand(std::string_view command, const Variant& windowStyle) const;
  void CommandToFile(std::string_view commandLine, const Variant& fileName) const;
  void Out(const Variant& fileName, const Variant& text) const;
  void OutLine(const Variant& fileName, const Variant& text) const;
  void OutFile(const Variant& fileName, const Variant& text) const;

  // Document numbers: qvn/core/consecutive.h

  std::int32_t TraeSiguiente(std::string_view Campo, const ConnectionPtr& Connection, const Variant& nErrores,
                             host::QueryPtr& Query) const;
  std::int32_t TraeSiguienteConfig(std::string_view Campo, const std::shared_ptr<Object>& SQLite) const;
  std::int32_t TraePosibleSiguiente(std::string_view Campo, const ConnectionPtr& Connection) const;
  std::int32_t TraeSiguienteSeguro(std::string_view Campo, const ConnectionPtr& Connection) const;

  // Environment and network: qvn/core/environment.h and network_link.h

  bool Conectar() const;
  bool IsConnected() const;
  std::string GetUserNameW() const;
  double OsVersion() const;
  bool IsDevEnv() const;
  std::string getMyName() const;
  Variant EmptySys(const Variant& value) const;

  // Factories: each call makes one new object, which belongs to the caller.

  std::shared_ptr<host::FileSystemObject> NewFso() const;
  host::QueryPtr NewQuery() const;
  std::shared_ptr<host::Collection> NewCollection() const;
  /// A closed connection to the embedded engine; the host adds "Data Source=..." and opens it.
  ConnectionPtr NewSQLite() const;
  /// Files come from the adapter that the host links (qvn::exports_xlsxwriter).
  exports::SpreadsheetExportPtr NewExcel() const;
  std::shared_ptr<dialogs::Progress> NewProgress() const;
  /// PDF files come from the adapter that the host links (qvn::reports_cairo).
  reports::ReportPtr NewInforme() const;
  std::shared_ptr<reports::ReportDefinition> nuevoReporteador() const;
  std::shared_ptr<system::Ping> NewPing() const;
  /// On the link of this process; see qvn/devices/links/process_link.h.
  std::shared_ptr<devices::QvnMobile> NewMobile() const;

  // Numbers as text: qvn/text/decimal_text.h and pattern.h

  std::string SeparadorDecimal() const;
  std::string FormatoDecimal(double uValue) const;
  double Fn(std::string_view strValue) const;
  double Val2(const Variant& uDato) const;
  Variant Formato(const Variant& Var, const Variant& strFormat) const;

  // Small arithmetic: qvn/text/arithmetic.h

  double Sqr2(const Variant& nDato) const;
  double Max(double nNumero1, double nNumero2) const;
  double Min(double nNumero1, double nNumero2) const;
  bool bolValue(std::int16_t nValue) const;
  std::int16_t bolInt(bool bolValue) const;

  // Padding and blanks: qvn/text/padding.h and null_text.h

  std::string PadR(const Variant& str, const Variant& nVeces) const;
  std::string PadL(Variant& str, const Variant& nVeces) const;
  std::string Replicate(std::string_view cChar, std::int32_t nVeces) const;
  std::string strCero(std::int32_t nNumero, std::int16_t nCeros) const;
  bool clEmpty(std::string_view cDato) const;
  std::string cNull(const Variant& uDato) const;

  // Searching, replacing, splitting: qvn/text/search.h, replace.h and split.h

  std::int32_t At(const Variant& strSearch, std::string_view strText) const;
  std::int32_t clAt(const Variant& strSearch, std::string_view strText) const;
  std::string Inserta(std::string_view cInserta, std::string_view cBusca, std::string_view cTarget) const;
  std::string Cambia(std::string_view cInserta, std::string_view cBusca, std::string& cTarget) const;
  Variant ReplaceString(std::string_view strSearch, std::string_view strSearchFor,
                        std::string_view strReplaceWith) const;
  std::int32_t DataSeparator(const Variant& Separator, Variant& strSearch, std::vector<Variant>& List) const;
  std::int32_t Separador(std::string_view Separator, std::string& strSearch, std::vector<std::string>& List) const;

  // Record lines: qvn/rowtext/write_record.h, read_record.h, ws_field.h and text_data.h

  std::string WsRecordSet(const RecordsetPtr& rst) const;
  std::shared_ptr<host::Collection> WsFields(std::string_view strWinsock) const;
  rowtext::WsFieldPtr newData(std::string_view strKey, const Variant& uData) const;
  std::shared_ptr<rowtext::TextData> NewTextData() const;

  // Text boxes: qvn/text/keystrokes.h and text_box_format.h

  std::int16_t ToNumber(std::int16_t& KeyAscii, const host::TextBox& Control, bool bolDecimales = true) const;
  std::int16_t UEspecial(std::int16_t& KeyAscii, const host::TextBox& Control) const;
  std::string AplicaFormato(host::TextBox& Text, const host::AmbientePtr& Ambiente,
                            std::string_view Formato = {}) const;

  // Account numbers: qvn/text/account.h

  std::string FormateaCuenta(std::string_view cCuenta, std::int32_t nNiveles, std::int32_t nNivel1,
                             std::int32_t nNivel2, std::int32_t nNivel3, std::int32_t nNivel4,
                             std::int32_t nNivel5) const;
  std::int32_t NivelDeCuenta(const Variant& cCuentaNivel1, const Variant& cCuentaNivel2, const Variant& cCuentaNivel3,
                             const Variant& cCuentaNivel4, const Variant& cCuentaNivel5) const;

  // Amounts in words: qvn/text/amount_in_words.h

  std::string PonLetra(double& Numero, std::string& Leyenda, bool bolDecimales, std::string_view strMoneda = "") const;

  // Calendar: qvn/text/calendar.h

  std::string Mes(std::int16_t nMes) const;
  std::string Dia(Date dFecha) const;
  std::int16_t MesAnterior(std::int16_t nMes) const;
  std::int16_t MesSiguiente(std::int16_t nMes) const;
  bool biciesto(std::int16_t nYear) const;
  Date Ud(std::int16_t nMes, std::int16_t nYear, bool bolUltimo = false) const;
  Date ElSiguienteMes(std::int16_t nMes, std::int16_t nDia, std::int32_t& nYear) const;
  Date PrimerDiaDelaSemana(Date dFecha) const;
  std::int32_t DateTimeSerial(Date dFecha, std::string_view tTiempo) const;
  std::string TimeLocal() const;
  bool ValidaFecha(Date dFecha, const host::AmbientePtr& Ambiente, bool bolMensajes = true) const;

  // Scrambling, chance, statistics, sorting: qvn/text/scrambling.h, statistics.h and shell_sort.h

  std::string Encrypta(std::string_view cTexto, std::int16_t nLlave) const;
  std::string Decrypta(std::string_view cTexto, std::int16_t nLlave) const;
  Variant numeroAleatorio(std::int32_t upperbound, std::int32_t lowerbound) const;
  double StdDev(const Variant& a) const;
  void ShellSortAny(Variant& vArray, text::SortDirection SortOrder = text::SortDirection::SortAscending) const;

  // Customer receivables: qvn/ledger/receivables.h

  void ActualizaSaldo(const Variant& nCobranza, const host::AmbientePtr& Ambiente, host::QueryPtr& Query) const;
  void ActualizaSaldo(const Variant& nCobranza, const host::AmbientePtr& Ambiente) const;
  void ActualizaPorAplicar(const Variant& nAbono, const host::AmbientePtr& Ambiente, host::QueryPtr& Query) const;
  void ActualizaPorAplicar(const Variant& nAbono, const host::AmbientePtr& Ambiente) const;
  void AfectaSaldoDeCliente(std::string_view cCliente, double nCantidad, const ConnectionPtr& Connection) const;

  // Supplier payables: qvn/ledger/payables.h

  void ActualizaSaldoPagos(const Variant& nCuenxpag, const host::AmbientePtr& Ambiente) const;
  void ActualizaCuenxpag(const Variant& nCuenxpag, const host::AmbientePtr& Ambiente) const;
  void ActualizaPorAplicarEnPagos(const Variant& nAbono, const host::AmbientePtr& Ambiente) const;
  void AfectaSaldoDeProveedor(std::string_view cProveedor, double nCantidad, const ConnectionPtr& Connection) const;

  // Orders: qvn/ledger/orders.h

  void ActualizaPorSurtirEnPedido(const Variant& cArticulo, std::int32_t nPartida, double nCantidad,
                                  std::int32_t nPedido, const host::AmbientePtr& Ambiente, bool bolAfectaArticulos,
                                  host::QueryPtr& Query) const;
  void ActualizaPorSurtirEnPedido(const Variant& cArticulo, std::int32_t nPartida, double nCantidad,
                                  std::int32_t nPedido, const host::AmbientePtr& Ambiente,
                                  bool bolAfectaArticulos = true) const;
  void ActualizaPorSurtirEnOrden(const Variant& cArticulo, std::int32_t nPartida, double nCantidad,
                                 std::int32_t nPedido, const host::AmbientePtr& Ambiente,
                                 bool bolAfectaArticulos = true) const;
  void ActualizaPorSurtir(const host::AmbientePtr& Ambiente, std::string_view cArticulo, std::int32_t nPartida,
                          double nCantidad, bool bolAfectaArticulos = true) const;
  void ActualizaPorRecibir(const host::AmbientePtr& Ambiente, std::string_view cArticulo, std::int32_t nPartida,
                           double nCantidad, bool bolAfectaArticulos = true) const;

  // Stock: qvn/ledger/stock.h

  void ActualizaApartadosPorVenta(const Variant& cArticulo, const Variant& nCantidad,
                                  const host::AmbientePtr& Ambiente) const;
  double EnVenta(std::string_view strArticulo, std::int32_t nVenta, const Variant& nAlmacen,
                 const ConnectionPtr& Connection) const;
  double PorSurtir(std::string_view strArticulo, const ConnectionPtr& Connection, std::int32_t nPedido = 0) const;
  bool VerificaInventarioFisico(std::string_view cUbicacion, std::int16_t nAlmacen,
                                const ConnectionPtr& Connection) const;
  bool VerificaFisico(const host::AmbientePtr& Ambiente) const;

  // Lots and price history: qvn/ledger/lots.h and price_history.h

  void RegresaLotes(std::int32_t nSalida, const host::AmbientePtr& Ambiente) const;
  void SalvaHistCamb(std::string_view Articulo, double precio1, double precio2 = 0, double precio3 = 0,
                     double precio4 = 0, double precio5 = 0, double precio6 = 0, double precio7 = 0, double precio8 = 0,
                     double precio9 = 0, double precio10 = 0, const host::AmbientePtr& Ambiente = nullptr) const;

  // MySQL backup, restore and repair: qvn/mysqladmin/database_backup.h, database_restore.h and table_repair.h. The
  // reports may be left unread.

  mysqladmin::BackupReport DatabaseBackup(std::string_view strFileName, const ConnectionPtr& conn) const;
  mysqladmin::RestoreReport DatabaseRestore(std::string_view strFileName, const ConnectionPtr& conn) const;
  void ReparaTabla(std::string_view text, const ConnectionPtr& Connection) const;

  // Barcodes: qvn/barcode/library_pictures.h and ean.h

  /// The pictures come from the adapter that the host links (qvn::barcode_cairo).
  barcode::PicturePtr Barcode128(std::int16_t zBarH, std::string_view BarText, bool HasCaption) const;
  barcode::PicturePtr Barcode3de9(std::int16_t zBarH, std::string_view BarText, bool zWithCheckSum,
                                  bool HasCaption) const;
  barcode::PicturePtr BarcodeEAN13(std::int16_t zBarH, std::string_view BarText, bool HasCaption) const;
  barcode::PicturePtr BarcodeEAN8(std::int16_t zBarH, std::string_view BarText, bool HasCaption) const;
  std::int16_t getEAN13ChekDigit(std::string_view text) const;
  /// Always 0.
  std::int16_t getBarcodeData(const Variant& data) const;

 private:
  dialogs::DialogsPtr dialogs_;
  ClockPtr clock_;
  RandomPtr random_;
};

}  // namespace qvn
