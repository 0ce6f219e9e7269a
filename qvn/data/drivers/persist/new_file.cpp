#include "qvn/data/drivers/persist/new_file.h"

#include <cerrno>
#include <random>
#include <string>
#include <system_error>

#include "qvn/base/runtime_error.h"

namespace qvn::data::persist {
namespace {

RuntimeError refusal(std::int32_t number, const std::filesystem::path& path) {
  const std::string text = number == error_number::kFileExists ? "El archivo ya existe" : runtimeErrorText(number);
  return RuntimeError(number, "No se pudo guardar el conjunto de registros en «" + path.string() + "»: " + text);
}

std::filesystem::path draftName(const std::filesystem::path& path) {
  std::random_device chance;
  std::filesystem::path draft = path;
  draft += "." + std::to_string(chance()) + ".tmp";
  return draft;
}

}  // namespace

NewFile::NewFile(std::filesystem::path path) : path_(std::move(path)), draft_(draftName(path_)) {
  std::error_code unreadable;  // the attempt to write tells more
  if (std::filesystem::exists(path_, unreadable)) throw refusal(error_number::kFileExists, path_);
  errno = 0;
  stream_.open(draft_, std::ios::binary);
  if (stream_) return;
  throw refusal(errno == ENOENT || errno == ENOTDIR ? error_number::kPathNotFound
                : errno == ENAMETOOLONG             ? error_number::kBadFileName
                                                    : error_number::kPermissionDenied,
                path_);
}

NewFile::~NewFile() {
  stream_.close();
  std::error_code gone;  // after publish() there is nothing to remove
  std::filesystem::remove(draft_, gone);
}

bool NewFile::write(std::string_view text) {
  return stream_.write(text.data(), static_cast<std::streamsize>(text.size())).good();
}

void NewFile::publish() {
  stream_.close();
  if (!stream_) throw refusal(error_number::kDiskFull, path_);
  // A link is refused where a renaming would take the place of another's file.
  std::error_code failure;
  std::filesystem::create_hard_link(draft_, path_, failure);
  if (failure == std::errc::file_exists) throw refusal(error_number::kFileExists, path_);
  if (!failure) return;
  // Not every file system has links.
  std::filesystem::rename(draft_, path_, failure);
  if (failure) throw refusal(error_number::kPermissionDenied, path_);
}

}  // namespace qvn::data::persist
