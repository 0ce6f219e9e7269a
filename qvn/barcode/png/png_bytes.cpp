#include "qvn/barcode/png/png_bytes.h"

#include <png.h>

#include <algorithm>
#include <cstring>

#include "qvn/base/runtime_error.h"

namespace qvn::barcode {
namespace {

constexpr std::int32_t kImageCannotBeMade = 480;
constexpr png_uint_32 kPixelsPerMetre = 3780;  // 96 dots an inch

[[noreturn]] void fail(png_structp /*png*/, png_const_charp words) {
  throw RuntimeError(kImageCannotBeMade, std::string("No se pudo hacer la imagen PNG: ") + words);
}
void ignoreWarning(png_structp /*png*/, png_const_charp /*words*/) {}

void append(png_structp png, png_bytep bytes, std::size_t count) {
  static_cast<std::string*>(png_get_io_ptr(png))->append(reinterpret_cast<const char*>(bytes), count);
}
void flush(png_structp /*png*/) {}

// Bars make most rows like the one above them.
bool repeatsRow(const Raster& raster, std::size_t y) {
  return y > 0 && std::memcmp(raster.row(y).data(), raster.row(y - 1).data(), raster.width) == 0;
}

bool hasBlackAndWhiteAlone(const Raster& raster) {
  const auto isEither = [](std::uint8_t pixel) { return pixel == 0 || pixel == 255; };
  for (std::size_t y = 0; y < raster.height; ++y) {
    if (!repeatsRow(raster, y) && !std::ranges::all_of(raster.row(y), isEither)) {
      return false;
    }
  }
  return true;
}

class Writer {
 public:
  explicit Writer(std::string& bytes)
      : png_(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, fail, ignoreWarning)) {
    if (png_ != nullptr) {
      info_ = png_create_info_struct(png_);
    }
    if (info_ == nullptr) {
      png_destroy_write_struct(&png_, &info_);
      throw RuntimeError(kImageCannotBeMade);
    }
    png_set_write_fn(png_, &bytes, append, flush);
  }
  ~Writer() { png_destroy_write_struct(&png_, &info_); }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  void write(const Raster& raster) {
    const bool isBlackAndWhite = hasBlackAndWhiteAlone(raster);
    // Rows repeat whole, so that the plainest compression without a filter is the fastest and loses nothing.
    png_set_compression_level(png_, 1);
    png_set_compression_mem_level(png_, 4);
    png_set_compression_window_bits(png_, 12);
    png_set_filter(png_, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
    png_set_IHDR(png_, info_, static_cast<png_uint_32>(raster.width), static_cast<png_uint_32>(raster.height),
                 isBlackAndWhite ? 1 : 8, PNG_COLOR_TYPE_GRAY, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_set_pHYs(png_, info_, kPixelsPerMetre, kPixelsPerMetre, PNG_RESOLUTION_METER);
    png_write_info(png_, info_);
    for (std::size_t y = 0; y < raster.height; ++y) {
      if (isBlackAndWhite && !repeatsRow(raster, y)) {
        pack(raster.row(y));
      }
      png_write_row(png_, isBlackAndWhite ? bits_.data() : raster.row(y).data());
    }
    png_write_end(png_, info_);
  }

 private:
  // Eight pixels a byte, the leftmost in its highest bit.
  void pack(std::span<const std::uint8_t> row) {
    bits_.clear();
    for (std::size_t first = 0; first < row.size(); first += 8) {
      const auto eight = row.subspan(first, std::min<std::size_t>(8, row.size() - first));
      unsigned byte = 0;
      for (const std::uint8_t pixel : eight) {
        byte = byte << 1 | pixel >> 7;
      }
      bits_.push_back(static_cast<png_byte>(byte << (8 - eight.size())));
    }
  }

  png_structp png_ = nullptr;
  png_infop info_ = nullptr;
  std::vector<png_byte> bits_;
};

}  // namespace

std::string pngBytes(const Raster& raster) {
  if (raster.pixels.empty()) {
    throw RuntimeError(error_number::kInvalidCall, "La imagen está vacía; revise el texto del código de barras");
  }
  std::string bytes;
  Writer(bytes).write(raster);
  return bytes;
}

}  // namespace qvn::barcode
