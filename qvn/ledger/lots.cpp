#include "qvn/ledger/lots.h"

#include <string>

#include "qvn/core/recordsets.h"
#include "qvn/host/statement_builder.h"
#include "qvn/text/decimal_text.h"

namespace qvn::ledger {
namespace {

void writeGoneOut(host::StatementBuilder& builder, const Variant& goneOut, const Variant& lotId) {
  builder.AgregaCampo("LOTES", "cantsal", goneOut);
  builder.Condicion("id = " + concatenate(lotId, {}));
  builder.Accion("UPDATE");
  builder.Arma();
  builder.Ejecuta();
}

// Puts what it can into the lot; gives what remains.
double fillLot(data::Recordset& lot, double remaining, host::StatementBuilder& builder) {
  const Variant goneOut = lot.Fields("Cantsal").Value();
  const Variant size = lot.Fields("Cantidad").Value();
  const Variant id = lot.Fields("Id").Value();
  if (remaining + text::Val2(goneOut) <= text::Val2(size)) {
    builder.Limpia();
    writeGoneOut(builder, goneOut + remaining, id);
    return 0;
  }
  writeGoneOut(builder, size, id);
  return remaining - goneOut.toDouble();
}

}  // namespace

void RegresaLotes(std::int32_t nSalida, const host::AmbientePtr& Ambiente) {
  const data::ConnectionPtr connection = host::requireConnection(Ambiente);
  const std::string stockExit = std::to_string(nSalida);
  const auto movements =
      core::CreaRecordSetEnCliente("SELECT * FROM slotes WHERE id_salida = " + stockExit, connection);
  host::StatementBuilder builder;
  builder.Conexion(connection);
  for (; !movements->Eof(); movements->MoveNext()) {
    double remaining = movements->Fields("Cantidad").Value().toDouble();
    const auto lots = core::CreaRecordSet("SELECT * FROM lotes WHERE lote = '" +
                                              concatenate(movements->Fields("lote").Value(), {}) + "' ORDER BY id DESC",
                                          connection);
    for (; !lots->Eof() && remaining > 0; lots->MoveNext()) remaining = fillLot(*lots, remaining, builder);
  }
  connection->Execute("DELETE FROM slotes WHERE id_salida = " + stockExit);
}

}  // namespace qvn::ledger
