// What a public reader sees in the pictures, and what an independent encoder makes of the same captions.
#include <gtest/gtest.h>
#include <zbar.h>
#include <zint.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>

#include "qvn/barcode/cairo/cairo_canvas.h"
#include "qvn/barcode/ean.h"
#include "qvn/barcode/library_pictures.h"
#include "tests/support/recorded_messages.h"

namespace qvn::barcode {
namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kSetB =
    " !\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`abcdefghijklmnopqrstuvwxyz{|}~";
constexpr std::string_view kCode39 = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%";  // "*" would end it for a reader

template <auto kDestroy>
struct Destroy {
  template <typename T>
  void operator()(T* object) const noexcept {
    kDestroy(object);
  }
};

// The picture on white paper, each pixel `zoom` times as large.
class Reader {
 public:
  std::string read(const Raster& raster, std::size_t zoom) {
    constexpr std::size_t kPaper = 30;
    const std::size_t width = raster.width * zoom + 2 * kPaper;
    const std::size_t height = raster.height * zoom + 2 * kPaper;
    std::string pixels(width * height, '\xff');
    for (std::size_t y = 0; y < raster.height * zoom; ++y) {
      for (std::size_t x = 0; x < raster.width * zoom; ++x) {
        pixels[(y + kPaper) * width + x + kPaper] = static_cast<char>(raster.row(y / zoom)[x / zoom]);
      }
    }
    const std::unique_ptr<zbar::zbar_image_t, Destroy<zbar::zbar_image_destroy>> image(zbar::zbar_image_create());
    zbar::zbar_image_set_format(image.get(), zbar_fourcc('Y', '8', '0', '0'));
    zbar::zbar_image_set_size(image.get(), static_cast<unsigned>(width), static_cast<unsigned>(height));
    zbar::zbar_image_set_data(image.get(), pixels.data(), pixels.size(), nullptr);
    zbar::zbar_scan_image(scanner_.get(), image.get());
    std::string found;
    for (const auto* symbol = zbar::zbar_image_first_symbol(image.get()); symbol != nullptr;
         symbol = zbar::zbar_symbol_next(symbol)) {
      found += std::string(zbar::zbar_get_symbol_name(zbar::zbar_symbol_get_type(symbol))) + " " +
               zbar::zbar_symbol_get_data(symbol);
    }
    return found;
  }

 private:
  std::unique_ptr<zbar::zbar_image_scanner_t, Destroy<zbar::zbar_image_scanner_destroy>> scanner_{
      zbar::zbar_image_scanner_create()};
};

class RandomCaptions {
 public:
  std::size_t number(std::size_t least, std::size_t most) {
    return std::uniform_int_distribution<std::size_t>(least, most)(random_);
  }
  std::string text(std::string_view alphabet, std::size_t least, std::size_t most) {
    std::string text(number(least, most), ' ');
    for (char& character : text) character = alphabet[number(0, alphabet.size() - 1)];
    return text;
  }
  Symbol symbol(Symbology symbology) {
    switch (symbology) {
      case Symbology::Code128: {
        const std::string letters = text(kSetB, 0, 12) + text("AZaz-", 1, 1);
        return {symbology, letters + text(kDigits, 0, 8), false,
                number(0, 1) == 0 ? TrailingDigits::FourOrMore : TrailingDigits::All};
      }
      case Symbology::Code39:
        return {symbology, text(kCode39, 2, 16), number(0, 1) == 0};
      case Symbology::Ean13:
        return {symbology, text(kDigits, 12, 12)};
      case Symbology::Ean8:
        return {symbology, text(kDigits, 7, 7)};
    }
    return {};
  }

 private:
  std::mt19937 random_{20260105};
};

// What a reader has to find in the bars.
std::string readable(const Symbol& symbol) {
  const std::string& caption = symbol.caption;
  switch (symbol.symbology) {
    case Symbology::Code128: {
      const std::size_t digits = caption.size() - 1 - caption.find_last_not_of(kDigits);
      const bool isLeftOut = digits < 4 && symbol.trailing == TrailingDigits::FourOrMore;
      return "CODE-128 " + caption.substr(0, caption.size() - (isLeftOut ? digits : 0));
    }
    case Symbology::Code39: {
      std::size_t sum = 0;
      for (const char character : caption) sum += kCode39.find(character);
      return "CODE-39 " + caption + (symbol.hasCheckCharacter ? std::string(1, (std::string(kCode39))[sum % 43]) : "");
    }
    case Symbology::Ean13:
      return "EAN-13 " + caption + checkDigit(caption);
    case Symbology::Ean8:
      return "EAN-8 " + caption + checkDigit(caption);
  }
  return "";
}

bool isCropped(const Drawing& drawing) {
  return !drawing.bars.empty() && drawing.bars.back().x + drawing.bars.back().width > drawing.width;
}

// QVN_BARCODE_CAPTIONS gives another number of captions.
TEST(Pictures, AreReadByAScanner) {
  const char* const wanted = std::getenv("QVN_BARCODE_CAPTIONS");
  const int captions = wanted == nullptr ? 1200 : std::atoi(wanted);
  RandomCaptions random;
  Reader reader;
  test::RecordedMessages messages;
  int cropped[4]{};
  for (int i = 0; i < captions; ++i) {
    const auto symbology = static_cast<Symbology>(i % 4);
    const Symbol symbol = random.symbol(symbology);
    const std::int32_t moduleWidth = 1 + i / 4 % 3;
    PictureFit fit{.moduleWidth = moduleWidth};
    const SymbolLook look{.barHeight = 3, .hasCaption = i % 2 == 0};
    PicturePtr picture = symbolPicture(symbol, look, fit, messages);
    if (isCropped(picture->drawing())) {
      ++cropped[i % 4];
      fit.isWidened = true;
      picture = symbolPicture(symbol, look, fit, messages);
    }
    ASSERT_EQ(reader.read(picture->raster(), moduleWidth == 1 ? 3 : 1), readable(symbol))
        << symbol.caption << " module width " << moduleWidth;
  }
  EXPECT_GT(cropped[0], 0) << "captions with a character after digits are wider than their estimate";
  EXPECT_EQ(cropped[1], 0);
  EXPECT_EQ(cropped[2], 0);
  EXPECT_EQ(cropped[3], captions / 4) << "the last bar of EAN-8 has never had a place";
}

std::string peerModules(int symbology, const std::string& caption, int option2) {
  const std::unique_ptr<zint_symbol, Destroy<ZBarcode_Delete>> peer(ZBarcode_Create());
  peer->symbology = symbology;
  peer->option_2 = option2;
  EXPECT_LT(ZBarcode_Encode(peer.get(), reinterpret_cast<const unsigned char*>(caption.data()),
                            static_cast<int>(caption.size())),
            ZINT_ERROR)
      << peer->errtxt;
  std::string modules;
  for (int i = 0; i < peer->width; ++i) modules += ((peer->encoded_data[0][i / 8] >> (i % 8)) & 1) != 0 ? '1' : '0';
  return modules;
}

// Captions that every encoder of the standard writes alike: Code 128 without digits, or of digits in pairs alone.
TEST(Modules, AreThoseOfAnIndependentEncoder) {
  constexpr std::string_view kLower = "abcdefghijklmnopqrstuvwxyz{|}~`";
  RandomCaptions random;
  for (int i = 0; i < 250; ++i) {
    const std::string lower = random.text(kLower, 1, 14);
    EXPECT_EQ(moduleString({.caption = lower}), peerModules(BARCODE_CODE128, lower, 0)) << lower;
    const std::string pairs = std::to_string(random.number(1000, 9999)) + std::to_string(random.number(10, 99));
    EXPECT_EQ(moduleString({.caption = pairs}), peerModules(BARCODE_CODE128, pairs, 0)) << pairs;
    EXPECT_EQ(moduleString({.caption = lower + pairs}), peerModules(BARCODE_CODE128, lower + pairs, 0)) << lower;
    const Symbol code39 = random.symbol(Symbology::Code39);
    EXPECT_EQ(moduleString(code39), peerModules(BARCODE_CODE39, code39.caption, code39.hasCheckCharacter ? 1 : 0) + "0")
        << code39.caption;
    for (const Symbology ean : {Symbology::Ean13, Symbology::Ean8}) {
      const Symbol symbol = random.symbol(ean);
      EXPECT_EQ(moduleString(symbol), peerModules(BARCODE_EANX, symbol.caption, 0)) << symbol.caption;
    }
  }
}

}  // namespace
}  // namespace qvn::barcode
