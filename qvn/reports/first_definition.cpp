#include "qvn/reports/first_definition.h"

#include <algorithm>
#include <string>

#include "qvn/base/letter_case.h"
#include "qvn/base/utf8.h"
#include "qvn/host/require.h"
#include "qvn/reports/shown_column.h"

namespace qvn::reports {
namespace {

using data::FieldType;

constexpr std::string_view kOpening =
    "# Definición de un informe. Los renglones con «#» o «;» son comentarios.\n"
    "#\n"
    "# [informe]  titulo, subtitulo, consulta (sigue en renglones con sangría), papel: carta, a4,\n"
    "#            carta horizontal o a4 horizontal\n"
    "# [grupo]    campo, titulo; la consulta los devuelve en orden (ORDER BY)\n"
    "# [columna]  campo, titulo, ancho (caracteres), formato, alinea: izquierda, derecha o centro, suma: si o no\n"
    "\n"
    "[informe]\n"
    "titulo = Informe\n"
    "consulta = -\n";

std::string_view patternOf(FieldType type) {
  switch (type) {
    case FieldType::Single:
    case FieldType::Double:
    case FieldType::Currency:
    case FieldType::Numeric:
      return "#,##0.00";
    case FieldType::DbDate:
      return "dd/mm/yyyy";
    case FieldType::Date:
    case FieldType::DbTimeStamp:
      return "dd/mm/yyyy hh:nn";
    case FieldType::DbTime:
      return "hh:nn:ss";
    case FieldType::SmallInt:
    case FieldType::Integer:
    case FieldType::Boolean:
    case FieldType::TinyInt:
    case FieldType::UnsignedTinyInt:
    case FieldType::UnsignedSmallInt:
    case FieldType::UnsignedInt:
    case FieldType::BigInt:
    case FieldType::UnsignedBigInt:
    case FieldType::Binary:
    case FieldType::Char:
    case FieldType::WChar:
    case FieldType::VarChar:
    case FieldType::LongVarChar:
    case FieldType::VarWChar:
    case FieldType::LongVarWChar:
    case FieldType::VarBinary:
    case FieldType::LongVarBinary:
      return "";
  }
  return "";
}

// "fecha_alta" as "Fecha alta".
std::string headingOf(std::string_view name) {
  std::string heading = upperCase(utf8::left(name, 1)).append(utf8::from(name, 1));
  std::ranges::replace(heading, '_', ' ');
  return std::string(utf8::trimBlanks(heading));
}

}  // namespace

ReportDefinitionPtr firstDefinition(std::string_view query, const data::RecordsetPtr& rows) {
  auto definition = std::make_shared<ReportDefinition>();
  definition->read(kOpening);
  definition->setQuery(query);
  for (const ShownColumn& column : shownColumns(*host::required(rows), {})) {
    definition->setColumn({.field = column.field->Name(),
                           .heading = headingOf(column.field->Name()),
                           .width = column.head.width,
                           .pattern = std::string(patternOf(column.field->Type()))});
  }
  return definition;
}

}  // namespace qvn::reports
