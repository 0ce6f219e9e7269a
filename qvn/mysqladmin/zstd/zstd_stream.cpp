#include "qvn/mysqladmin/zstd/zstd_stream.h"

#include <zstd.h>

#include <new>
#include <utility>
#include <vector>

#include "qvn/mysqladmin/damaged_dump.h"

namespace qvn::mysqladmin {
namespace {

constexpr std::size_t kBlockBytes = std::size_t{64} * 1024;

struct FreeContext {
  void operator()(ZSTD_CCtx* context) const noexcept { ZSTD_freeCCtx(context); }
  void operator()(ZSTD_DCtx* context) const noexcept { ZSTD_freeDCtx(context); }
};

template <typename Context>
std::unique_ptr<Context, FreeContext> owned(Context* context) {
  if (context == nullptr) throw std::bad_alloc();
  return std::unique_ptr<Context, FreeContext>(context);
}

class ZstdSink final : public DumpSink {
 public:
  explicit ZstdSink(DumpSinkPtr file)
      : file_(std::move(file)), block_(kBlockBytes), context_(owned(ZSTD_createCCtx())) {
    ZSTD_CCtx_setParameter(context_.get(), ZSTD_c_checksumFlag, 1);
  }

  void write(std::string_view bytes) override {
    ZSTD_inBuffer in{bytes.data(), bytes.size(), 0};
    while (in.pos < in.size) pump(in, ZSTD_e_continue);
  }

  void finish() override {
    ZSTD_inBuffer nothing{nullptr, 0, 0};
    while (pump(nothing, ZSTD_e_end) > 0) {
    }
    file_->finish();
  }

 private:
  // Returns how much is still held back, once everything was handed over.
  std::size_t pump(ZSTD_inBuffer& in, ZSTD_EndDirective directive) {
    ZSTD_outBuffer out{block_.data(), block_.size(), 0};
    const std::size_t left = ZSTD_compressStream2(context_.get(), &out, &in, directive);
    if (ZSTD_isError(left) != 0) throw std::bad_alloc();
    file_->write({block_.data(), out.pos});
    return left;
  }

  DumpSinkPtr file_;
  std::vector<char> block_;
  std::unique_ptr<ZSTD_CCtx, FreeContext> context_;
};

class ZstdSource final : public DumpSource {
 public:
  explicit ZstdSource(DumpSourcePtr file)
      : file_(std::move(file)), block_(kBlockBytes), context_(owned(ZSTD_createDCtx())) {}

  std::size_t read(std::span<char> room) override {
    ZSTD_outBuffer out{room.data(), room.size(), 0};
    while (out.pos == 0) {
      if (in_.pos == in_.size && !isHoldingBack_ && !fill()) return 0;
      expected_ = ZSTD_decompressStream(context_.get(), &out, &in_);
      if (ZSTD_isError(expected_) != 0) refuseDamagedDump(ZSTD_getErrorName(expected_));
      // A full room may hide more that was expanded already.
      isHoldingBack_ = expected_ != 0 && out.pos == out.size;
    }
    return out.pos;
  }

  [[nodiscard]] std::int64_t taken() const override { return file_->taken(); }
  [[nodiscard]] std::int64_t length() const override { return file_->length(); }

 private:
  // False at the end of the file, which must be the end of a frame.
  bool fill() {
    in_ = {block_.data(), file_->read(block_), 0};
    if (in_.size == 0 && expected_ != 0) refuseDamagedDump("termina antes de tiempo");
    return in_.size > 0;
  }

  DumpSourcePtr file_;
  std::vector<char> block_;
  std::unique_ptr<ZSTD_DCtx, FreeContext> context_;
  ZSTD_inBuffer in_{nullptr, 0, 0};
  std::size_t expected_ = 1;  // 0 between frames; a file without any frame is none of this format
  bool isHoldingBack_ = false;
};

}  // namespace

DumpSinkPtr zstdSink(DumpSinkPtr file) { return std::make_unique<ZstdSink>(std::move(file)); }

DumpSourcePtr zstdSource(DumpSourcePtr file) { return std::make_unique<ZstdSource>(std::move(file)); }

}  // namespace qvn::mysqladmin
