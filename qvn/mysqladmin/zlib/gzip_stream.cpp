#include "qvn/mysqladmin/zlib/gzip_stream.h"

#define ZLIB_CONST
#include <zlib.h>

#include <new>
#include <utility>
#include <vector>

#include "qvn/mysqladmin/damaged_dump.h"

namespace qvn::mysqladmin {
namespace {

constexpr std::size_t kBlockBytes = std::size_t{64} * 1024;
// The window of 32 KiB, and 16 for the gzip format. Source: zlib.h on deflateInit2 and inflateInit2.
constexpr int kGzipWindow = 15 + 16;
constexpr int kMemoryLevel = 8;

const Bytef* bytesOf(const char* text) { return reinterpret_cast<const Bytef*>(text); }

class GzipSink final : public DumpSink {
 public:
  explicit GzipSink(DumpSinkPtr file) : file_(std::move(file)), block_(kBlockBytes) {
    if (deflateInit2(&stream_, Z_BEST_SPEED, Z_DEFLATED, kGzipWindow, kMemoryLevel, Z_DEFAULT_STRATEGY) != Z_OK) {
      throw std::bad_alloc();
    }
  }
  ~GzipSink() override { deflateEnd(&stream_); }
  GzipSink(const GzipSink&) = delete;
  GzipSink& operator=(const GzipSink&) = delete;

  void write(std::string_view bytes) override {
    stream_.next_in = bytesOf(bytes.data());
    stream_.avail_in = static_cast<uInt>(bytes.size());
    pump(Z_NO_FLUSH);
  }

  void finish() override {
    pump(Z_FINISH);
    file_->finish();
  }

 private:
  void pump(int flush) {
    do {
      stream_.next_out = reinterpret_cast<Bytef*>(block_.data());
      stream_.avail_out = static_cast<uInt>(block_.size());
      deflate(&stream_, flush);
      file_->write({block_.data(), block_.size() - stream_.avail_out});
    } while (stream_.avail_out == 0);
  }

  DumpSinkPtr file_;
  std::vector<char> block_;
  z_stream stream_{};
};

class GzipSource final : public DumpSource {
 public:
  explicit GzipSource(DumpSourcePtr file) : file_(std::move(file)), block_(kBlockBytes) {
    if (inflateInit2(&stream_, kGzipWindow) != Z_OK) throw std::bad_alloc();
  }
  ~GzipSource() override { inflateEnd(&stream_); }
  GzipSource(const GzipSource&) = delete;
  GzipSource& operator=(const GzipSource&) = delete;

  std::size_t read(std::span<char> room) override {
    stream_.next_out = reinterpret_cast<Bytef*>(room.data());
    stream_.avail_out = static_cast<uInt>(room.size());
    while (stream_.avail_out == room.size()) {
      if (stream_.avail_in == 0 && !isHoldingBack_ && !fill()) return 0;
      const int status = inflate(&stream_, Z_NO_FLUSH);
      isInMember_ = status != Z_STREAM_END;
      // A full room may hide more that was expanded already.
      isHoldingBack_ = isInMember_ && stream_.avail_out == 0;
      if (status == Z_STREAM_END) {
        inflateReset(&stream_);
      } else if (status != Z_OK && status != Z_BUF_ERROR) {
        refuseDamagedDump(stream_.msg == nullptr ? "gzip" : stream_.msg);
      }
    }
    return room.size() - stream_.avail_out;
  }

  [[nodiscard]] std::int64_t taken() const override { return file_->taken(); }
  [[nodiscard]] std::int64_t length() const override { return file_->length(); }

 private:
  // False at the end of the file, which must be the end of a member.
  bool fill() {
    const std::size_t count = file_->read(block_);
    if (count == 0 && isInMember_) refuseDamagedDump("termina antes de tiempo");
    stream_.next_in = bytesOf(block_.data());
    stream_.avail_in = static_cast<uInt>(count);
    return count > 0;
  }

  DumpSourcePtr file_;
  std::vector<char> block_;
  z_stream stream_{};
  bool isHoldingBack_ = false;
  bool isInMember_ = true;  // a file without any member is no gzip file
};

}  // namespace

DumpSinkPtr gzipSink(DumpSinkPtr file) { return std::make_unique<GzipSink>(std::move(file)); }

DumpSourcePtr gzipSource(DumpSourcePtr file) { return std::make_unique<GzipSource>(std::move(file)); }

}  // namespace qvn::mysqladmin
