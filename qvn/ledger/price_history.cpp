#include "qvn/ledger/price_history.h"

#include <string>

#include "qvn/base/utf8.h"
#include "qvn/core/recordsets.h"
#include "qvn/host/statement_builder.h"
#include "qvn/text/pattern.h"

namespace qvn::ledger {
namespace {

constexpr std::string_view kTable = "histcamb";

}  // namespace

void SalvaHistCamb(std::string_view Articulo, const Prices& prices, const host::AmbientePtr& Ambiente,
                   const ClockPtr& clock) {
  const data::ConnectionPtr connection = host::requireConnection(Ambiente);
  const std::string product(utf8::trimBlanks(Articulo));
  const auto rows = core::CreaRecordSet("SELECT * FROM prods WHERE articulo = '" + product + "'", connection);
  if (rows->Eof()) return;
  const Date now = clock->now();
  host::StatementBuilder builder;
  builder.Conexion(connection);
  builder.Accion("INSERT");
  const auto add = [&](std::string field, Variant value) {
    builder.AgregaCampo(kTable, std::move(field), std::move(value));
  };
  add("id", builder.SiguienteId(kTable));
  add("articulo", product);
  add("sucursal", Ambiente->Sucursal());
  for (std::size_t i = 0; i < prices.size(); ++i) add("precio" + std::to_string(i + 1), prices.at(i));
  add("existencia", rows->Fields("existencia").Value());
  for (std::size_t i = 1; i <= prices.size(); ++i) {
    add("precioold" + std::to_string(i), rows->Fields("precio" + std::to_string(i)).Value());
  }
  add("usuario", Ambiente->Usuario());
  add("usufecha", Date(now.dayNumber()));
  add("usuhora", text::Formato(now, "hh:mm:ss"));
  builder.Arma();
  builder.Ejecuta();
}

}  // namespace qvn::ledger
