#include "qvn/host/replaced_file.h"

#include "qvn/base/path.h"
#include "qvn/host/file_error.h"

namespace qvn::host {

ReplacedFile::ReplacedFile(std::string_view path, OnExisting onExisting, std::string_view purpose)
    : path_(hostPath(path)), onExisting_(onExisting), purpose_(purpose), written_(path_) {
  std::error_code ignored;  // what cannot be looked at cannot be opened either, which says so
  const bool isThere = std::filesystem::exists(path_, ignored);
  if (isThere && onExisting == OnExisting::Refuse) {
    throw fileError(error_number::kFileExists, {.verb = purpose, .path = path});
  }
  isPending_ = !isThere || std::filesystem::is_regular_file(path_, ignored);
  if (isPending_) written_ += ".parcial";
}

ReplacedFile::~ReplacedFile() {
  std::error_code ignored;  // it may never have been made
  if (isPending_) std::filesystem::remove(written_, ignored);
}

void ReplacedFile::publish() {
  if (!isPending_) return;
  std::error_code code;
  if (onExisting_ == OnExisting::Refuse) {
    // A link is refused where a renaming would take the place of another's file. Not every file system has links.
    std::filesystem::create_hard_link(written_, path_, code);
    if (!code) return;  // the other name goes with the object
    if (code == std::errc::file_exists) throw refusal(code);
  }
  std::filesystem::rename(written_, path_, code);
  if (code) throw refusal(code);
  isPending_ = false;
}

RuntimeError ReplacedFile::refusal(const std::error_code& code) const {
  return fileError(code, {.verb = purpose_, .path = path_.string()});
}

}  // namespace qvn::host
