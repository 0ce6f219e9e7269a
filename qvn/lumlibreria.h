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

#include "qvn/base/clock.h"
#include "qvn/base/variant.h"
#include "qvn/data/connection.h"
#include "qvn/host/ambiente.h"
#include "qvn/host/collection.h"
#include "qvn/host/file_system_object.h"
#include "qvn/host/message_box.h"
#include "qvn/host/query.h"
#include "qvn/host/text_box.h"

namespace qvn {

class LumLibreria {
 public:
  using ConnectionPtr = data::ConnectionPtr;
  using RecordsetPtr = data::RecordsetPtr;

  /// With the message box of the terminal.
  LumLibreria();
  explicit LumLibreria(std::shared_ptr<host::MessageBox> messages, ClockPtr clock = systemClock());

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

  // Barcodes: qvn/barcode/ean.h

  std::int16_t getEAN13ChekDigit(std::string_view text) const;
  /// Always 0.
  std::int16_t getBarcodeData(const Variant& data) const;

 private:
  std::shared_ptr<host::MessageBox> messages_;
  ClockPtr clock_;
};

}  // namespace qvn
