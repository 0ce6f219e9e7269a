#include "qvn/mysqladmin/damaged_dump.h"

#include <string>

#include "qvn/base/runtime_error.h"

namespace qvn::mysqladmin {

void refuseDamagedDump(const char* reason) {
  throw RuntimeError(error_number::kDeviceError, std::string("El respaldo comprimido está dañado o incompleto (") +
                                                     reason + "); use otra copia del archivo");
}

}  // namespace qvn::mysqladmin
