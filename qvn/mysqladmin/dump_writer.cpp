#include "qvn/mysqladmin/dump_writer.h"

namespace qvn::mysqladmin {

void DumpWriter::flush() {
  handedOver_ += static_cast<std::int64_t>(buffer_.size());
  try {
    sink_->write(buffer_);
  } catch (...) {
    buffer_.clear();
    throw;
  }
  buffer_.clear();
}

void DumpWriter::finish() {
  flush();
  sink_->finish();
}

}  // namespace qvn::mysqladmin
