#include "qvn/host/replaced_file.h"

#include "qvn/base/path.h"
#include "qvn/host/file_error.h"

namespace qvn::host {
namespace {

RuntimeError refusal(const std::error_code& code, const std::filesystem::path& path) {
  return fileError(code, {.verb = "reemplazar el archivo", .path = path.string()});
}

}  // namespace

ReplacedFile::ReplacedFile(std::string_view path) : path_(hostPath(path)), written_(path_) {
  std::error_code ignored;  // what cannot be looked at cannot be opened either, which says so
  isPending_ = !std::filesystem::exists(path_, ignored) || std::filesystem::is_regular_file(path_, ignored);
  if (isPending_) written_ += ".parcial";
}

ReplacedFile::~ReplacedFile() {
  std::error_code ignored;  // it may never have been made
  if (isPending_) std::filesystem::remove(written_, ignored);
}

void ReplacedFile::publish() {
  if (!isPending_) return;
  std::error_code code;
  std::filesystem::rename(written_, path_, code);
  if (code) throw refusal(code, path_);
  isPending_ = false;
}

void ReplacedFile::publishNew() {
  // A link is refused where a renaming would take the place of another's file. Not every file system has links.
  std::error_code code;
  std::filesystem::create_hard_link(written_, path_, code);
  if (code == std::errc::file_exists) throw refusal(code, path_);
  if (code) publish();
}

}  // namespace qvn::host
