#include "qvn/reports/output_file.h"

#include <cerrno>
#include <system_error>

#include "qvn/host/file_error.h"

namespace qvn::reports {
namespace {

constexpr std::string_view kVerb = "escribir el informe";

}  // namespace

OutputFile::OutputFile(std::string_view path, OnExisting onExisting) : path_(path), file_(path, onExisting, kVerb) {
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
  file_.publish();
}

}  // namespace qvn::reports
