#include "qvn/mysqladmin/dump_formats.h"

#include <array>
#include <utility>

#include "qvn/base/letter_case.h"
#include "qvn/mysqladmin/zlib/gzip_stream.h"
#include "qvn/mysqladmin/zstd/zstd_stream.h"

namespace qvn::mysqladmin {
namespace {

struct Format {
  std::string_view ending;
  DumpSinkPtr (*compress)(DumpSinkPtr file);
  DumpSourcePtr (*expand)(DumpSourcePtr file);
};

constexpr auto kFormats = std::to_array<Format>({
    {".gz", gzipSink, gzipSource},
    {".zst", zstdSink, zstdSource},
});

const Format* formatOf(std::string_view path) {
  for (const Format& format : kFormats) {
    const std::size_t size = format.ending.size();
    if (path.size() > size && equalIgnoringCase(path.substr(path.size() - size), format.ending)) return &format;
  }
  return nullptr;
}

}  // namespace

DumpSinkPtr compressedFor(std::string_view path, DumpSinkPtr file) {
  const Format* const format = formatOf(path);
  return format == nullptr ? std::move(file) : format->compress(std::move(file));
}

DumpSourcePtr expandedFor(std::string_view path, DumpSourcePtr file) {
  const Format* const format = formatOf(path);
  return format == nullptr ? std::move(file) : format->expand(std::move(file));
}

}  // namespace qvn::mysqladmin
