// Connections of commands that are never given a password where the list of processes shows it.
#pragma once

#include "apps/qvn/command.h"
#include "apps/qvn/connect.h"

namespace qvn::cli {

inline constexpr Option kPasswordFileOption{"archivo-clave", 0, "ARCHIVO", "su primera línea es la contraseña"};
inline constexpr Option kAskPasswordOption{"pide-clave", 0, "", "pregunta la contraseña"};

/// As connect() does, with the password from the file of the option, from the person, or from the environment variable
/// QVN_CLAVE; without them that of QVN_CONEXION counts. Throws UsageError also for a password in -c, RuntimeError 53
/// when the file cannot be read.
data::ConnectionPtr connectSecretly(const Arguments& arguments, Context& context);

}  // namespace qvn::cli
