#include "apps/qvn/connect.h"

#include <cstdlib>

#include "apps/qvn/terminal_text.h"
#include "qvn/data/connection_string.h"

namespace qvn::cli {

data::ConnectionPtr connect(const Arguments& arguments, Context& context) {
  return connectTo(connectionText(arguments), arguments, context);
}

std::string connectionText(const Arguments& arguments) {
  if (const auto given = arguments.value(kConnectionOption.name)) return std::string(*given);
  const char* variable = std::getenv("QVN_CONEXION");
  if (variable == nullptr || *variable == '\0') {
    throw UsageError(
        "falta la conexión: désela con -c CADENA o en la variable QVN_CONEXION, por ejemplo\n"
        "     -c 'Provider=SQLite;Data Source=tienda.db'");
  }
  return variable;
}

std::string readableConnection(std::string_view connectionString) {
  return safeText(data::withoutPassword(connectionString));
}

data::ConnectionPtr connectTo(const std::string& connectionString, const Arguments& arguments, Context& context,
                              const std::string& password) {
  data::ConnectionPtr connection = data::Connection::create();
  if (arguments.has(kTraceOption.name)) {
    connection->setStatementObserver([&out = context.out, &messages = context.messages](std::string_view sql) {
      // In the order in which things happen, where both go to one terminal.
      out.flush();
      messages << safeText(sql) << "\n";
      messages.flush();
    });
  }
  try {
    connection->Open(connectionString, {}, password);
  } catch (const RuntimeError&) {
    context.messages << "qvn: no se abrió la conexión " << readableConnection(connectionString) << "\n";
    throw;
  }
  return connection;
}

}  // namespace qvn::cli
