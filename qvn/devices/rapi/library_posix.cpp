#include <dlfcn.h>

#include "qvn/base/runtime_error.h"
#include "qvn/devices/rapi/library.h"

namespace qvn::devices::rapi {
namespace {

constexpr std::int32_t kFunctionNotFound = 453;

// Reads what went wrong last in the loader.
[[noreturn]] void fail(std::int32_t number, const std::string& attempt) {
  const char* reason = dlerror();
  throw RuntimeError(number, attempt + (reason == nullptr ? "" : std::string(": ") + reason));
}

template <typename Function>
void find(void* library, const std::string& path, const char* name, Function& function) {
  // The system promises that a pointer to data can hold one to a function.
  function = reinterpret_cast<Function>(dlsym(library, name));
  if (function == nullptr) {
    fail(kFunctionNotFound, "A la biblioteca «" + path + "» le falta la función " + name);
  }
}

}  // namespace

void Library::Unload::operator()(void* library) const noexcept { dlclose(library); }

Library::Library(const std::string& path) {
  const std::string attempt = "No se pudo abrir la biblioteca «" + path + "» del dispositivo";
  // The empty name would be this program itself.
  if (path.empty()) throw RuntimeError(error_number::kFileNotFound, attempt);
  library_.reset(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL));
  if (library_ == nullptr) fail(error_number::kFileNotFound, attempt);
  const auto take = [&](const char* name, auto& function) { find(library_.get(), path, name, function); };
  take("CeRapiInitEx", functions_.CeRapiInitEx);
  take("CeRapiUninit", functions_.CeRapiUninit);
  take("CeCreateFile", functions_.CeCreateFile);
  take("CeReadFile", functions_.CeReadFile);
  take("CeWriteFile", functions_.CeWriteFile);
  take("CeCloseHandle", functions_.CeCloseHandle);
  take("CeDeleteFile", functions_.CeDeleteFile);
  take("CeFindFirstFile", functions_.CeFindFirstFile);
  take("CeFindClose", functions_.CeFindClose);
  take("CeCreateProcess", functions_.CeCreateProcess);
  take("CeGetVersionEx", functions_.CeGetVersionEx);
}

}  // namespace qvn::devices::rapi
