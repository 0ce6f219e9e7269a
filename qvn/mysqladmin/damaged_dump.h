// Compressed dumps that cannot be expanded.
#pragma once

namespace qvn::mysqladmin {

/// RuntimeError 57 with `reason`: "El respaldo comprimido está dañado o incompleto (reason)".
[[noreturn]] void refuseDamagedDump(const char* reason);

}  // namespace qvn::mysqladmin
