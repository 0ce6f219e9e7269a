#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "qvn/barcode/cairo/cairo_canvas.h"
#include "qvn/barcode/cairo/label_sheet.h"
#include "qvn/barcode/library_pictures.h"
#include "qvn/barcode/oden_barcode.h"
#include "qvn/dialogs/scripted_dialogs.h"
#include "qvn/lumlibreria.h"
#include "tests/support/error_of.h"
#include "tests/support/recorded_messages.h"
#include "tests/support/scratch_folder.h"

namespace qvn::barcode {
namespace {

// Plots every call at once, pixel by pixel, on a canvas of a size of its own.
class PlottingCanvas final : public Canvas {
 public:
  int width = 0, height = 0;
  std::vector<std::uint8_t> pixels;

  void clearPicture() override {}
  void keepImage() override {}
  void BackColor(std::int32_t /*color*/) override {}
  void AutoRedraw(bool /*redraws*/) override {}
  void ScaleMode(std::int16_t /*mode*/) override {}
  void Height(double twips) override { height = std::max(0, static_cast<int>(twips / 15 + 0.5)); }
  void Width(double twips) override {
    width = static_cast<int>(twips / 15 + 0.5);
    pixels.assign(static_cast<std::size_t>(width * height), 255);
  }
  void CurrentX(double /*x*/) override {}
  void CurrentY(double /*y*/) override {}
  double TextHeight(std::string_view /*text*/) override { return 12; }
  double TextWidth(std::string_view text) override { return 6.0 * static_cast<double>(text.size()); }
  void Line(std::int32_t x, std::int32_t top, std::int32_t bottom, std::int32_t color) override {
    for (int y = std::min(top, bottom); y < std::max(top, bottom); ++y) {
      if (x < width && y >= 0 && y < height) {
        pixels[static_cast<std::size_t>(y * width + x)] = color == 0 ? 0 : 255;
      }
    }
  }
  void Print(std::string_view /*text*/) override {}
  [[nodiscard]] double twipsPerPixelX() const override { return 15; }
  [[nodiscard]] double twipsPerPixelY() const override { return 15; }
};

const Symbol kSymbols[] = {{Symbology::Code128, "AB1234"},
                           {Symbology::Code128, "12AB"},
                           {Symbology::Code39, "PLU-17", true},
                           {Symbology::Ean13, "400638133393"},
                           {Symbology::Ean8, "9638507"}};

TEST(Pictures, PixelsAreThoseOfTheCalls) {
  test::RecordedMessages messages;
  for (const Symbol& symbol : kSymbols) {
    for (const int height : {-32768, -3, 0, 1, 5, 60}) {
      const SymbolLook look{static_cast<std::int16_t>(height), false};
      PlottingCanvas plotted;
      drawSymbol(symbol, look, plotted, messages);
      const Raster raster = symbolPicture(symbol, look, {}, messages)->raster();
      EXPECT_TRUE(raster.pixels == plotted.pixels) << symbol.caption << " height " << height;
      EXPECT_EQ(raster.pixels.empty(), height < -1) << symbol.caption << " height " << height;
    }
  }
}

// The ink of row groups, as "first-last" columns.
std::string inkColumns(const Raster& raster, std::size_t fromRow, std::size_t endRow) {
  std::size_t first = raster.width;
  std::size_t last = 0;
  for (std::size_t y = fromRow; y < endRow; ++y) {
    for (std::size_t x = 0; x < raster.width; ++x) {
      if (raster.row(y)[x] < 128) {
        first = std::min(first, x);
        last = std::max(last, x);
      }
    }
  }
  return std::to_string(first) + "-" + std::to_string(last);
}

TEST(Pictures, CaptionsStandWhereTheyArePrinted) {
  test::RecordedMessages messages;
  // The 7 is left out: 1 + 7 * 11 + 13 = 91, centred on 55.5, six characters of about 6 pixels below the bars, which
  // end with row 59
  const auto code128 = Barcode128(5, "HHHHH7", true, messages);
  const Drawing& drawing = code128->drawing();
  ASSERT_EQ(drawing.texts.size(), 1U);
  EXPECT_EQ(drawing.texts[0].text, "HHHHH7");
  EXPECT_EQ(drawing.texts[0].y, 65);
  const Raster raster = code128->raster();
  EXPECT_EQ(raster.height, 50U + 25 + 12);
  EXPECT_EQ(inkColumns(raster, 60, 65), std::to_string(raster.width) + "-0");
  const std::string ink = inkColumns(raster, 65, 77);
  const int first = std::stoi(ink);
  const int last = std::stoi(ink.substr(ink.find('-') + 1));
  EXPECT_NEAR((first + last) / 2.0, 55.5, 2);
  EXPECT_GT(last - first, 30);
  // Between the guards of EAN-13, which reach row 64: columns 16 to 18, 61 to 65 and 108 to 110.
  const Raster ean = BarcodeEAN13(5, "400638133393", true, messages)->raster();
  for (const std::size_t column : {19U, 60U, 66U, 67U, 107U}) {
    for (std::size_t y = 60; y < 75; ++y) EXPECT_GT(ean.row(y)[column], 127) << column << "," << y;
  }
  EXPECT_NE(inkColumns(ean, 65, 75), "128-0");
}

TEST(Pictures, FitsAreOptIn) {
  test::RecordedMessages messages;
  const SymbolLook look{5, true};
  const Symbol ean8{Symbology::Ean8, "9638507"};
  const auto plain = symbolPicture(ean8, look, {}, messages);
  EXPECT_EQ(plain->drawing().width, 75);  // 1120 twips of 15; the bars end with column 82
  EXPECT_EQ(symbolPicture(ean8, look, {.isWidened = true}, messages)->drawing().width, 93);
  const Drawing wide = symbolPicture(ean8, look, {.moduleWidth = 3, .isWidened = true}, messages)->drawing();
  EXPECT_EQ(wide.width, 3 * 93);
  EXPECT_EQ(wide.bars.front().x, 3 * 16);
  EXPECT_EQ(wide.bars.front().width, 3);
  EXPECT_NEAR(wide.texts[0].x + wide.texts[0].width / 2, 3 * (23 + wide.texts[0].width / 2), 0.5);
  // A caption that is wider than its bars moves them to the right.
  const Drawing narrow = symbolPicture({.caption = "777"}, look, {.isWidened = true}, messages)->drawing();
  EXPECT_GE(narrow.texts[0].x, 0);
  for (const int width : {0, 101}) {
    EXPECT_EQ(test::errorNumber([&] { symbolPicture(ean8, look, {.moduleWidth = width}, messages); }), 5);
  }
}

Raster decodedPng(const std::string& bytes) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  EXPECT_NE(png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()), 0) << image.message;
  image.format = PNG_FORMAT_GRAY;
  Raster raster{image.width, image.height, std::vector<std::uint8_t>(PNG_IMAGE_SIZE(image))};
  EXPECT_NE(png_image_finish_read(&image, nullptr, raster.pixels.data(), 0, nullptr), 0) << image.message;
  return raster;
}

TEST(Pictures, Files) {
  test::RecordedMessages messages;
  for (const bool hasCaption : {false, true}) {
    const auto picture = Barcode3de9(5, "PLU-17", false, hasCaption, messages);
    const Raster decoded = decodedPng(picture->encoded(PictureFormat::Png));
    EXPECT_EQ(decoded.width, static_cast<std::size_t>(picture->drawing().width));
    EXPECT_TRUE(decoded.pixels == picture->raster().pixels) << hasCaption;
  }
  const auto picture = Barcode128(5, "AB1234", true, messages);
  EXPECT_NE(picture->encoded(PictureFormat::Svg).find("<svg"), std::string::npos);
  const test::ScratchFolder folder;
  picture->save(folder.path("a.PDF"));
  EXPECT_GT(std::filesystem::file_size(folder.path("a.PDF")), 500U);
  EXPECT_EQ(test::errorNumber([&] { picture->save(folder.path("a.bmp")); }), 5);
  EXPECT_EQ(test::errorNumber([&] { picture->save(folder.path("none/a.png")); }), 75);
  std::filesystem::create_symlink("/dev/full", folder.path("full.png"));
  EXPECT_EQ(test::errorNumber([&] { picture->save(folder.path("full.png")); }), 75);
  EXPECT_EQ(test::errorNumber([&] { LabelSheet(folder.path("none/a.pdf"), {}); }), 75);
}

TEST(Pictures, LargestAndTooLarge) {
  test::RecordedMessages messages;
  const auto tall = BarcodeEAN8(32767, "9638507", true, messages);
  EXPECT_EQ(tall->raster().height, 327670U + 25 + 12);
  EXPECT_FALSE(tall->encoded(PictureFormat::Png).empty());
  const std::string caption(30000, 'M');
  const auto wide = Barcode128(1, caption, true, messages)->raster();
  EXPECT_EQ(wide.width, 30003U * 11 + 25);
  EXPECT_NE(inkColumns(wide, 25, wide.height), std::to_string(wide.width) + "-0");
  EXPECT_EQ(test::errorNumber([&] { Barcode128(32767, caption, false, messages)->raster(); }), 480);
  EXPECT_EQ(test::errorNumber([&] { Barcode128(1, std::string(40000, 'M'), false, messages); }), 6);
  EXPECT_EQ(test::errorNumber([&] { Barcode128(1, "AÑO", true, messages); }), 9);
}

TEST(LumLibreriaBarcodes, InvalidCaptionIsToldAndGivesAnEmptyPicture) {
  const auto dialogs = std::make_shared<dialogs::ScriptedDialogs>();
  const LumLibreria library(dialogs);
  for (const PicturePtr& picture :
       {library.Barcode3de9(5, "abc", true, true), library.BarcodeEAN13(5, "4006381333931", true),
        library.BarcodeEAN8(5, "963850", true)}) {
    ASSERT_NE(picture, nullptr);
    EXPECT_TRUE(picture->drawing().isEmpty());
    EXPECT_TRUE(picture->raster().pixels.empty());
    for (const PictureFormat format : {PictureFormat::Png, PictureFormat::Svg, PictureFormat::Pdf}) {
      EXPECT_EQ(test::errorNumber([&] { picture->encoded(format); }), 5);
    }
  }
  EXPECT_FALSE(library.Barcode128(5, "AB12", true)->drawing().isEmpty());
}

TEST(CaptionFonts, AreTheHostsChoice) {
  test::RecordedMessages messages;
  const auto canvas = newCairoCanvas({.family = "DejaVu Sans Mono", .sizePixels = 30});
  odenBarcode(messages).Code39(*canvas, 5, "A", false, true);
  EXPECT_GT(canvas->picture({})->drawing().height, 50 + 25 + 30);
  EXPECT_EQ(test::errorNumber([] { newCairoCanvas({.sizePixels = 0}); }), 5);
}

TEST(LabelSheets, FlowOverPages) {
  test::RecordedMessages messages;
  const test::ScratchFolder folder;
  LabelSheet sheet(folder.path("labels.pdf"), {});
  // 96 x 65.25 points each: five in a row of 540 points, nine rows in 720
  const auto label = BarcodeEAN13(5, "400638133393", true, messages);
  for (int i = 0; i < 46; ++i) {
    EXPECT_EQ(sheet.pages(), i <= 45 ? 1 : 2) << i;
    sheet.add(label->drawing());
  }
  EXPECT_EQ(sheet.pages(), 2);
  sheet.finish();
  EXPECT_GT(std::filesystem::file_size(folder.path("labels.pdf")), 2000U);
}

}  // namespace
}  // namespace qvn::barcode
