// The database that a command works on, and the options that name it.
#pragma once

#include <string>
#include <string_view>

#include "apps/qvn/command.h"
#include "qvn/data/connection.h"

namespace qvn::cli {

inline constexpr Option kConnectionOption{"conexion", 'c', "CADENA", "base de datos; sin ella cuenta QVN_CONEXION"};
inline constexpr Option kTraceOption{"traza", 0, "", "escribe cada sentencia en la salida de errores"};

/// Opens the connection of the option, or else of the environment variable QVN_CONEXION, with the trace when it is
/// asked for. Throws UsageError when neither is given, ProviderError as Connection::Open does.
data::ConnectionPtr connect(const Arguments& arguments, Context& context);

/// The same with a connection string from elsewhere; a password that is not empty goes before that of the string.
data::ConnectionPtr connectTo(const std::string& connectionString, const Arguments& arguments, Context& context,
                              const std::string& password = {});

/// The text of the option or of the environment variable. Throws UsageError when neither is given.
std::string connectionText(const Arguments& arguments);

/// A connection string for people to read: on one line, without its password.
std::string readableConnection(std::string_view connectionString);

}  // namespace qvn::cli
