#include "qvn/data/drivers/persist/new_file.h"

#include <algorithm>
#include <array>
#include <random>
#include <string>

#include "qvn/base/utf8.h"

namespace qvn::data::persist {
namespace {

struct Refusal {
  std::errc cause;
  std::int32_t number;
  std::string_view words;
};

constexpr Refusal kAnyOther{std::errc::io_error, error_number::kDeviceError,
                            "el sistema no pudo escribirlo; revise el disco"};

constexpr auto kRefusals = std::to_array<Refusal>({
    {std::errc::file_exists, error_number::kFileExists, "el archivo ya existe; elija otro nombre o bórrelo antes"},
    {std::errc::no_such_file_or_directory, error_number::kPathNotFound,
     "no existe la carpeta; créela o revise la ruta"},
    {std::errc::not_a_directory, error_number::kPathNotFound, "una parte de la ruta no es una carpeta; revise la ruta"},
    {std::errc::filename_too_long, error_number::kBadFileName, "el nombre es demasiado largo; elija otro más corto"},
    {std::errc::invalid_argument, error_number::kBadFileName, "el sistema no admite ese nombre; elija otro"},
    {std::errc::no_space_on_device, error_number::kDiskFull,
     "el disco está lleno; libere espacio o guarde en otro disco"},
    {std::errc::too_many_files_open, error_number::kTooManyFiles,
     "hay demasiados archivos abiertos; cierre alguno e inténtelo de nuevo"},
    {std::errc::too_many_files_open_in_system, error_number::kTooManyFiles,
     "hay demasiados archivos abiertos; cierre alguno e inténtelo de nuevo"},
    {std::errc::permission_denied, error_number::kPermissionDenied,
     "no hay permiso de escritura; revise los permisos de la carpeta"},
    {std::errc::operation_not_permitted, error_number::kPermissionDenied,
     "no hay permiso de escritura; revise los permisos de la carpeta"},
    {std::errc::read_only_file_system, error_number::kPermissionDenied,
     "el disco es de sólo lectura; guarde en otra carpeta"},
});

// In the same folder, for a file keeps its disk when it is renamed; short, for a name may be as long as the system
// lets.
std::filesystem::path draftName(const std::filesystem::path& path) {
  std::random_device chance;
  return path.parent_path() / ("qvn" + std::to_string(chance()) + ".tmp");
}

std::filesystem::path requireAbsent(std::filesystem::path path) {
  std::error_code unreadable;  // the attempt to write tells more
  if (std::filesystem::exists(path, unreadable)) {
    throw saveRefusal(std::make_error_code(std::errc::file_exists), path);
  }
  return path;
}

}  // namespace

RuntimeError saveRefusal(const std::error_code& failure, const std::filesystem::path& path) {
  const auto* found = std::ranges::find_if(kRefusals, [&](const Refusal& row) { return failure == row.cause; });
  const Refusal& refusal = found == kRefusals.end() ? kAnyOther : *found;
  std::string text = "No se pudo guardar el conjunto de registros en «" + utf8::sanitize(path.string()) + "»: ";
  text.append(refusal.words).append(" (").append(utf8::sanitize(failure.message())).append(")");
  return RuntimeError(refusal.number, text);
}

NewFile::NewFile(std::filesystem::path path)
    : path_(requireAbsent(std::move(path))), draft_(draftName(path_)), file_(draft_) {
  requireWritten();
}

NewFile::~NewFile() {
  std::error_code gone;  // after publish() there is nothing to remove
  std::filesystem::remove(draft_, gone);
}

void NewFile::requireWritten() const {
  if (file_.failure()) throw saveRefusal(file_.failure(), path_);
}

void NewFile::publish() {
  file_.finish();
  requireWritten();
  // A link is refused where a renaming would take the place of another's file.
  std::error_code failure;
  std::filesystem::create_hard_link(draft_, path_, failure);
  if (failure == std::errc::file_exists) throw saveRefusal(failure, path_);
  if (!failure) return;
  // Not every file system has links.
  std::filesystem::rename(draft_, path_, failure);
  if (failure) throw saveRefusal(failure, path_);
}

}  // namespace qvn::data::persist
