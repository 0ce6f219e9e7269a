// qvn conexion: what a connection string stands for.
#include <array>

#include "apps/qvn/commands.h"
#include "apps/qvn/connect.h"
#include "apps/qvn/table_writer.h"
#include "apps/qvn/terminal_text.h"
#include "qvn/core/dialect.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Abre la base de datos y dice qué se encontró detrás de la cadena de conexión: el
controlador que la atiende, el motor y su versión, y el dialecto de SQL de las
funciones de la biblioteca. El dialecto se decide por las palabras «SQLNCLI»,
«MySQL», «IbOleDb» y «Jet» de la cadena; sin ninguna es el de MySQL. No cambia
nada en la base y nunca muestra la contraseña.
)";

constexpr std::string_view kExamples = R"(
  qvn conexion -c 'Provider=SQLite;Data Source=tienda.db'
  qvn conexion -c 'MySQL;SERVER=caja1;DATABASE=tienda;UID=pos;PWD=secreto'
  qvn conexion -c 'Provider=SQLNCLI10;Server=servidor,1433;Database=tienda;
                   Uid=pos;Pwd=secreto'
  qvn conexion -c 'Provider=IbOleDb;Data Source=servidor:/datos/tienda.fdb;
                   User ID=SYSDBA;Password=secreto'
  qvn conexion -c 'Provider=Microsoft.Jet.OLEDB.4.0;Data Source=tienda.mdb'
  qvn conexion -c 'DSN=Tienda;UID=pos;PWD=secreto'
)";

constexpr auto kOptions = std::to_array<Option>({kConnectionOption});

ExitStatus runConexion(const Arguments& arguments, Context& context) {
  if (!arguments.operands().empty()) {
    throw UsageError("sobra «" + safeText(arguments.operands().front()) + "»; la cadena va con -c");
  }
  const data::ConnectionPtr connection = connect(arguments, context);
  TableWriter table(context.out, {"conexión", readableConnection(connection->ConnectionString())});
  table.add({textCell("controlador"), textCell(safeText(connection->DriverName()))});
  table.add({textCell("motor"), textCell(safeText(connection->EngineVersion()))});
  table.add({textCell("dialecto"), textCell(std::string(core::dialectName(*connection)))});
  table.end();
  return ExitStatus::Done;
}

}  // namespace

constinit const Command kConexionCommand{
    "conexion", "dice qué hay detrás de una cadena de conexión", "", kDescription, kOptions, kExamples, runConexion};

}  // namespace qvn::cli
