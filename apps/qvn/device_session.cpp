#include "apps/qvn/device_session.h"

#include <string>
#include <system_error>

#include "apps/qvn/seconds_option.h"
#include "qvn/base/path.h"
#include "qvn/base/runtime_error.h"
#include "qvn/devices/folder/folder_link.h"
#include "qvn/devices/links/process_link.h"
#include "qvn/devices/rapi/rapi_link.h"

namespace qvn::cli {
namespace {

std::chrono::milliseconds waitOf(const Arguments& arguments) {
  const auto seconds = secondsOf(arguments, kDeviceWaitOption);
  return seconds ? *seconds : devices::kConnectionWait;
}

devices::DeviceLinkPtr folderLink(std::string_view folder) {
  const std::filesystem::path path = hostPath(folder);
  std::error_code ignored;  // a folder that cannot be looked at is as good as none
  if (!std::filesystem::is_directory(path, ignored)) {
    throw RuntimeError(error_number::kPathNotFound, "No existe la carpeta «" + std::string(folder) + "»");
  }
  return std::make_shared<devices::FolderLink>(path);
}

// Loaded at once, so that the person learns what is wrong with it.
devices::DeviceLinkPtr libraryLink(std::string_view library) {
  const auto link = std::make_shared<devices::RapiLink>(std::string(library));
  link->load();
  return link;
}

devices::DeviceLinkPtr linkOf(const Arguments& arguments) {
  const auto folder = arguments.value(kDeviceFolderOption.name);
  const auto library = arguments.value(kDeviceLibraryOption.name);
  if (folder && library) throw UsageError("--carpeta y --biblioteca no van juntas");
  if (folder) return folderLink(*folder);
  if (library) return libraryLink(*library);
  if (const auto configured = devices::configuredLibrary()) return libraryLink(*configured);
  throw UsageError("diga cuál es el dispositivo: --carpeta, --biblioteca o la variable QVN_RAPI");
}

}  // namespace

DeviceSession::DeviceSession(const Arguments& arguments) : wait_(waitOf(arguments)), link_(linkOf(arguments)) {
  if (device().Connect(wait_)) return;
  throw RuntimeError(error_number::kDeviceError,
                     "El dispositivo no contesta; revise que esté encendido, conectado y sin otra sesión");
}

DeviceSession::~DeviceSession() { device().Disconnect(); }

}  // namespace qvn::cli
