#include "qvn/reports/first_definition.h"

#include <algorithm>
#include <string>

#include "qvn/base/letter_case.h"
#include "qvn/base/utf8.h"
#include "qvn/data/field_kind.h"
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
  const data::FieldKind kind = data::kindOf(type);
  if (data::hasDecimals(kind)) return "#,##0.00";
  if (kind != data::FieldKind::Moment) return "";
  if (type == FieldType::DbDate) return "dd/mm/yyyy";
  return type == FieldType::DbTime ? "hh:nn:ss" : "dd/mm/yyyy hh:nn";
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
