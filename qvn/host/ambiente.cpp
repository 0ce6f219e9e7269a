#include "qvn/host/ambiente.h"

#include "qvn/base/runtime_error.h"

namespace qvn::host {

data::ConnectionPtr requireConnection(const AmbientePtr& ambiente) {
  data::ConnectionPtr connection = ambiente ? ambiente->Conexion() : nullptr;
  if (connection) return connection;
  throw RuntimeError(error_number::kObjectNotSet, "El ambiente no tiene una conexión; asígnele una conexión abierta");
}

}  // namespace qvn::host
