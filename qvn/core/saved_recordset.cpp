#include "qvn/core/saved_recordset.h"

#include <filesystem>
#include <system_error>

#include "qvn/base/path.h"
#include "qvn/base/runtime_error.h"

namespace qvn::core {

data::RecordsetPtr LoadRsFromXML(std::string_view fullpath) {
  try {
    std::error_code unreadable;
    if (fullpath.empty() || !std::filesystem::exists(hostPath(fullpath), unreadable)) return nullptr;
    auto rows = std::make_shared<data::Recordset>();
    rows->setCursorLocation(data::CursorLocation::Client);
    rows->Open(fullpath, "Provider=MSPersist;");
    return rows;
  } catch (const RuntimeError&) {
    return nullptr;
  }
}

}  // namespace qvn::core
