#include "qvn/barcode/cairo/png_file.h"

#include <png.h>

#include <string>

#include "qvn/base/runtime_error.h"

namespace qvn::barcode {
namespace {

[[noreturn]] void fail(png_structp /*png*/, png_const_charp message) {
  throw RuntimeError(error_number::kDeviceError, std::string("No se pudo formar la imagen PNG: ") + message);
}

void append(png_structp png, png_bytep bytes, std::size_t count) {
  static_cast<std::string*>(png_get_io_ptr(png))->append(static_cast<const char*>(static_cast<void*>(bytes)), count);
}

class Writer {
 public:
  explicit Writer(std::string& file) : png_(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, fail, nullptr)) {
    if (png_ == nullptr) fail(nullptr, "sin memoria");
    info_ = png_create_info_struct(png_);
    if (info_ == nullptr) {
      png_destroy_write_struct(&png_, nullptr);
      fail(nullptr, "sin memoria");
    }
    png_set_write_fn(png_, &file, append, nullptr);
  }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;
  ~Writer() { png_destroy_write_struct(&png_, &info_); }

  void write(const GrayImage& image) {
    constexpr png_uint_32 kPixelsPerMetre = 3780;  // 96 an inch
    constexpr int kBitsPerPixel = 8;
    png_set_IHDR(png_, info_, static_cast<png_uint_32>(image.width), static_cast<png_uint_32>(image.height),
                 kBitsPerPixel, PNG_COLOR_TYPE_GRAY, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_set_pHYs(png_, info_, kPixelsPerMetre, kPixelsPerMetre, PNG_RESOLUTION_METER);
    // Nearly all rows equal the one above, which this filter turns into zeros.
    png_set_filter(png_, PNG_FILTER_TYPE_BASE, PNG_FILTER_UP);
    png_set_compression_level(png_, 1);
    png_write_info(png_, info_);
    const auto width = static_cast<std::size_t>(image.width);
    for (std::size_t at = 0; at < image.pixels.size(); at += width) png_write_row(png_, image.pixels.data() + at);
    png_write_end(png_, nullptr);
  }

 private:
  png_structp png_;
  png_infop info_ = nullptr;
};

}  // namespace

std::string pngFile(const GrayImage& image) {
  std::string file;
  Writer(file).write(image);
  return file;
}

}  // namespace qvn::barcode
