#include "qvn/mysqladmin/replaced_file.h"

#include "qvn/base/path.h"
#include "qvn/host/file_error.h"

namespace qvn::mysqladmin {

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
  if (code) throw host::fileError(code, {.verb = "reemplazar el archivo", .path = path_.string()});
  isPending_ = false;
}

}  // namespace qvn::mysqladmin
