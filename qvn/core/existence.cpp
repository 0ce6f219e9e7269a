#include "qvn/core/existence.h"

#include <string>

#include "qvn/base/letter_case.h"
#include "qvn/core/dialect.h"
#include "qvn/core/recordsets.h"
#include "qvn/host/require.h"
#include "qvn/text/decimal_text.h"

namespace qvn::core {
namespace {

std::string probe(std::string_view field, std::string_view table, const Variant& value,
                  const data::Connection& connection, bool isNumeric) {
  const std::string start = "SELECT " + std::string(field) + " FROM " + std::string(table) + " WHERE ";
  if (!isNumeric) return start + std::string(field) + " = '" + value.toText() + "'";
  // On MySQL the statement ends in a blank, elsewhere it does not.
  return start + "(((" + std::string(field) + ") = " + value.toText() + "))" +
         (hasMarker(connection, marker::kMySql) ? " " : "");
}

}  // namespace

std::int32_t LastRec(std::string_view strTabla, const data::ConnectionPtr& Connection) {
  const auto rows = FastRst("SELECT COUNT(*) AS 'REGISTROS' FROM " + lowerCase(strTabla), Connection);
  const Variant& count = rows->Fields(0).Value();
  return count.isNull() ? 0 : count.toLong();
}

bool Existen(std::string_view Tabla, const data::ConnectionPtr& Connection) {
  return !CreaRecordSet("SELECT * FROM " + lowerCase(Tabla), Connection)->Eof();
}

bool Existe(std::string_view cCampo, std::string_view cTabla, const Variant& value, const data::ConnectionPtr& Conexion,
            bool Numeric) {
  const std::string sql = probe(cCampo, cTabla, value, *host::required(Conexion), Numeric);
  const auto rows = hasMarker(*Conexion, marker::kInterBase) ? CreaRecordSet(sql, Conexion) : FastRst(sql, Conexion);
  return !rows->Eof();
}

bool ExisteCampo(std::string_view cCampo, std::string_view cTabla, const data::ConnectionPtr& Connection) {
  try {
    FastRst("SELECT " + std::string(cCampo) + " FROM " + std::string(cTabla) + " ", Connection);
  } catch (const data::ProviderError&) {
    return false;
  }
  return true;
}

double lastInsertedId(const data::ConnectionPtr& Connection) {
  return text::Val2(FastRst("SELECT SCOPE_IDENTITY()", Connection)->Fields(0).Value());
}

}  // namespace qvn::core
