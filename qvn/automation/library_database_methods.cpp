#include "qvn/automation/method.h"
#include "qvn/automation/sections.h"

namespace qvn::automation {
namespace {

// Of each pair of overloads the one that hands the statement runner back.
using Document = void (LumLibreria::*)(const Variant&, const host::AmbientePtr&, host::QueryPtr&) const;
using OrderLine = void (LumLibreria::*)(const Variant&, std::int32_t, double, std::int32_t, const host::AmbientePtr&,
                                        bool, host::QueryPtr&) const;

}  // namespace

// NOLINTNEXTLINE(readability-function-size): a table
std::vector<Section> databaseSections() {
  return {
      {"Recordsets",
       {"qvn/core/recordsets.h", "qvn/core/saved_recordset.h"},
       {
           method<&LumLibreria::CreaRecordSet>("CreaRecordSet", "strSQL", "Connection", "porPantalla=false"),
           method<&LumLibreria::CreaRecordSetEnCliente>("CreaRecordSetEnCliente", "strSQL", "Connection"),
           method<&LumLibreria::RecordWrite>("RecordWrite", "strSQL", "Connection"),
           method<&LumLibreria::RstRO>("RstRO", "strSQL", "Connection", "bolPantalla=false"),
           method<&LumLibreria::FastRst>("FastRst", "strSQL", "Connection"),
           method<&LumLibreria::LoadRsFromXML>("LoadRsFromXML", "fullpath"),
       }},
      {"Questions about tables, rows and fields",
       {"qvn/core/existence.h"},
       {
           method<&LumLibreria::LastRec>("LastRec", "strTabla", "Connection"),
           method<&LumLibreria::Existen>("Existen", "Tabla", "Connection"),
           method<&LumLibreria::Existe>("Existe", "cCampo", "cTabla", "value", "Conexion", "Numeric=false"),
           method<&LumLibreria::ExisteCampo>("ExisteCampo", "cCampo", "cTabla", "Connection"),
           method<&LumLibreria::lastInsertedId>("lastInsertedId", "Connection"),
       }},
      {"Dialects and Access files",
       {"qvn/core/date_literal.h", "qvn/core/access_database.h"},
       {
           method<&LumLibreria::FechaSQL>("FechaSQL", "dFecha", "Connection"),
           method<&LumLibreria::AbreConnection>("AbreConnection", "cBase"),
       }},
      {"Document numbers",
       {"qvn/core/consecutive.h"},
       {
           method<&LumLibreria::TraeSiguiente>("TraeSiguiente", "Campo", "Connection", "nErrores", "Query"),
           method<&LumLibreria::TraeSiguienteConfig>("TraeSiguienteConfig", "Campo", "SQLite"),
           method<&LumLibreria::TraePosibleSiguiente>("TraePosibleSiguiente", "Campo", "Connection"),
           method<&LumLibreria::TraeSiguienteSeguro>("TraeSiguienteSeguro", "Campo", "Connection"),
       }},
      {"Customer receivables",
       {"qvn/ledger/receivables.h"},
       {
           method<static_cast<Document>(&LumLibreria::ActualizaSaldo)>("ActualizaSaldo", "nCobranza", "Ambiente",
                                                                       "Query=null"),
           method<static_cast<Document>(&LumLibreria::ActualizaPorAplicar)>("ActualizaPorAplicar", "nAbono", "Ambiente",
                                                                            "Query=null"),
           method<&LumLibreria::AfectaSaldoDeCliente>("AfectaSaldoDeCliente", "cCliente", "nCantidad", "Connection"),
       }},
      {"Supplier payables",
       {"qvn/ledger/payables.h"},
       {
           method<&LumLibreria::ActualizaSaldoPagos>("ActualizaSaldoPagos", "nCuenxpag", "Ambiente"),
           method<&LumLibreria::ActualizaCuenxpag>("ActualizaCuenxpag", "nCuenxpag", "Ambiente"),
           method<&LumLibreria::ActualizaPorAplicarEnPagos>("ActualizaPorAplicarEnPagos", "nAbono", "Ambiente"),
           method<&LumLibreria::AfectaSaldoDeProveedor>("AfectaSaldoDeProveedor", "cProveedor", "nCantidad",
                                                        "Connection"),
       }},
      {"Orders",
       {"qvn/ledger/orders.h"},
       {
           method<static_cast<OrderLine>(&LumLibreria::ActualizaPorSurtirEnPedido)>(
               "ActualizaPorSurtirEnPedido", "cArticulo", "nPartida", "nCantidad", "nPedido", "Ambiente",
               "bolAfectaArticulos=true", "Query=null"),
           method<&LumLibreria::ActualizaPorSurtirEnOrden>("ActualizaPorSurtirEnOrden", "cArticulo", "nPartida",
                                                           "nCantidad", "nPedido", "Ambiente",
                                                           "bolAfectaArticulos=true"),
           method<&LumLibreria::ActualizaPorSurtir>("ActualizaPorSurtir", "Ambiente", "cArticulo", "nPartida",
                                                    "nCantidad", "bolAfectaArticulos=true"),
           method<&LumLibreria::ActualizaPorRecibir>("ActualizaPorRecibir", "Ambiente", "cArticulo", "nPartida",
                                                     "nCantidad", "bolAfectaArticulos=true"),
       }},
      {"Stock",
       {"qvn/ledger/stock.h"},
       {
           method<&LumLibreria::ActualizaApartadosPorVenta>("ActualizaApartadosPorVenta", "cArticulo", "nCantidad",
                                                            "Ambiente"),
           method<&LumLibreria::EnVenta>("EnVenta", "strArticulo", "nVenta", "nAlmacen", "Connection"),
           method<&LumLibreria::PorSurtir>("PorSurtir", "strArticulo", "Connection", "nPedido=0"),
           method<&LumLibreria::VerificaInventarioFisico>("VerificaInventarioFisico", "cUbicacion", "nAlmacen",
                                                          "Connection"),
           method<&LumLibreria::VerificaFisico>("VerificaFisico", "Ambiente"),
       }},
      {"Lots and price history",
       {"qvn/ledger/lots.h", "qvn/ledger/price_history.h"},
       {
           method<&LumLibreria::RegresaLotes>("RegresaLotes", "nSalida", "Ambiente"),
           method<&LumLibreria::SalvaHistCamb>("SalvaHistCamb", "Articulo", "precio1", "precio2=0", "precio3=0",
                                               "precio4=0", "precio5=0", "precio6=0", "precio7=0", "precio8=0",
                                               "precio9=0", "precio10=0", "Ambiente=null"),
       }},
      {"MySQL backup, restore and repair",
       {"qvn/mysqladmin/database_backup.h", "qvn/mysqladmin/database_restore.h", "qvn/mysqladmin/table_repair.h"},
       {
           method<&LumLibreria::DatabaseBackup>("DatabaseBackup", "strFileName", "conn"),
           method<&LumLibreria::DatabaseRestore>("DatabaseRestore", "strFileName", "conn"),
           method<&LumLibreria::ReparaTabla>("ReparaTabla", "text", "Connection"),
       }},
  };
}

}  // namespace qvn::automation
