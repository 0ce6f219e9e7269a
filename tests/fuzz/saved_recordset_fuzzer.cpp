// Any bytes as a saved recordset: they open as rows or are refused with a ProviderError.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "qvn/data/driver_registry.h"
#include "qvn/data/drivers/persist/persist_driver.h"
#include "qvn/data/provider_error.h"
#include "qvn/data/recordset.h"

namespace {

// One file for this process, in a folder that goes with it.
class ScratchFile {
 public:
  ScratchFile() : path_(std::filesystem::temp_directory_path() / ("qvn_fuzz_" + std::to_string(getpid()) + ".xml")) {
    qvn::data::registerDriver(qvn::data::persistDriver());
  }
  ~ScratchFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }
  [[nodiscard]] std::string write(const std::uint8_t* data, std::size_t size) const {
    std::ofstream(path_, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    return path_.string();
  }

 private:
  std::filesystem::path path_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const ScratchFile kFile;
  qvn::data::Recordset rows;
  rows.setCursorLocation(qvn::data::CursorLocation::Client);
  try {
    rows.Open(kFile.write(data, size), "Provider=MSPersist;");
  } catch (const qvn::data::ProviderError&) {
    return 0;
  }
  if (rows.State() == qvn::data::ObjectState::Closed) std::abort();
  for (; !rows.Eof(); rows.MoveNext()) {
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) (void)rows.Fields(i).Value();
  }
  return 0;
}
