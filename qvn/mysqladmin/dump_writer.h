// Text on its way to a dump, gathered so that the sink gets large pieces.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "qvn/mysqladmin/dump_stream.h"

namespace qvn::mysqladmin {

class DumpWriter {
 public:
  explicit DumpWriter(DumpSinkPtr sink) : sink_(std::move(sink)) {}

  /// Throws RuntimeError as DumpSink::write does; what was gathered is dropped then, and writing may go on.
  DumpWriter& operator<<(std::string_view text) {
    buffer_.append(text);
    if (buffer_.size() >= kBlockBytes) flush();
    return *this;
  }

  /// Hands everything over and closes. Throws RuntimeError.
  void finish();

  /// Bytes of text so far, those gathered included.
  [[nodiscard]] std::int64_t bytes() const { return handedOver_ + static_cast<std::int64_t>(buffer_.size()); }

 private:
  static constexpr std::size_t kBlockBytes = std::size_t{256} * 1024;
  void flush();

  DumpSinkPtr sink_;
  std::string buffer_;
  std::int64_t handedOver_ = 0;
};

}  // namespace qvn::mysqladmin
