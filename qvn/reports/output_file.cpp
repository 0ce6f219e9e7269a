#include "qvn/reports/output_file.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "qvn/base/path.h"
#include "qvn/host/file_error.h"

namespace qvn::reports {
namespace {

constexpr std::string_view kVerb = "escribir el informe";

// Its own step, so that nothing is made beside a file that stays.
std::string_view freePath(std::string_view path, OnExisting onExisting) {
  std::error_code unreadable;  // the attempt to write tells more
  if (onExisting == OnExisting::Refuse && std::filesystem::exists(hostPath(path), unreadable)) {
    throw host::fileError(error_number::kFileExists, {.verb = kVerb, .path = path});
  }
  return path;
}

}  // namespace

OutputFile::OutputFile(std::string_view path, OnExisting onExisting)
    : path_(path), onExisting_(onExisting), file_(freePath(path, onExisting)) {
  errno = 0;
  stream_.reset(std::fopen(file_.name().c_str(), "wbe"));
  if (!stream_) refuse();
}

void OutputFile::refuse() const {
  throw host::fileError(std::error_code(errno, std::generic_category()), {.verb = kVerb, .path = path_});
}

void OutputFile::write(std::string_view bytes) {
  errno = 0;
  if (std::fwrite(bytes.data(), 1, bytes.size(), stream_.get()) != bytes.size()) refuse();
}

void OutputFile::publish() {
  errno = 0;
  if (std::fclose(stream_.release()) != 0) refuse();
  if (onExisting_ == OnExisting::Replace) {
    file_.publish();
  } else {
    file_.publishNew();
  }
}

}  // namespace qvn::reports
