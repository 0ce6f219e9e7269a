#include "qvn/barcode/cairo/picture_file.h"

#include <filesystem>
#include <string>

#include "qvn/base/path.h"
#include "qvn/base/runtime_error.h"
#include "qvn/host/file_system_object.h"

namespace qvn::barcode {
namespace {

void removeQuietly(std::string_view path) {
  std::error_code ignored;
  std::filesystem::remove(hostPath(path), ignored);
}

}  // namespace

void writePictureFile(std::string_view path, std::string_view bytes) {
  const host::FileSystemObject files;
  const std::string unfinished = std::string(path) + "." + files.GetTempName();
  try {
    const auto stream = files.CreateTextFile(unfinished, false);
    stream->Write(bytes);
    stream->Close();
  } catch (...) {
    removeQuietly(unfinished);
    throw;
  }
  std::error_code failure;
  std::filesystem::rename(hostPath(unfinished), hostPath(path), failure);
  if (failure) {
    removeQuietly(unfinished);
    throw RuntimeError(error_number::kPermissionDenied,
                       "No se pudo reemplazar «" + std::string(path) + "»: " + failure.message());
  }
}

}  // namespace qvn::barcode
