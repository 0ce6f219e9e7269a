#include "qvn/barcode/oden_barcode.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "qvn/barcode/code128.h"
#include "qvn/barcode/code39.h"
#include "qvn/barcode/ean.h"

namespace qvn::barcode {
namespace {

std::string number(double value) { return std::to_string(static_cast<int>(value * 2)) + "/2"; }

/// Notes every call but Line as text, and the lines apart. Texts are 8 pixels a character wide and 13 high.
class RecordingCanvas final : public Canvas {
 public:
  struct Bar {
    std::int32_t x, top, bottom, color;
  };
  std::string calls;
  std::vector<Bar> bars;

  void clearPicture() override { calls += "clear "; }
  void keepImage() override { calls += "keep"; }
  void BackColor(std::int32_t color) override { calls += "back=" + std::to_string(color) + " "; }
  void AutoRedraw(bool redraws) override { calls += redraws ? "redraw " : "no-redraw "; }
  void ScaleMode(std::int16_t mode) override { calls += "scale=" + std::to_string(mode) + " "; }
  void Height(double twips) override { calls += "h=" + number(twips) + " "; }
  void Width(double twips) override { calls += "w=" + number(twips) + " "; }
  void CurrentX(double x) override { calls += "x=" + number(x) + " "; }
  void CurrentY(double y) override { calls += "y=" + number(y) + " "; }
  double TextHeight(std::string_view /*text*/) override { return 13; }
  double TextWidth(std::string_view text) override { return 8.0 * static_cast<double>(text.size()); }
  void Line(std::int32_t x, std::int32_t top, std::int32_t bottom, std::int32_t color) override {
    bars.push_back({x, top, bottom, color});
  }
  void Print(std::string_view text) override { calls += "print(" + std::string(text) + ") "; }
  double twipsPerPixelX() const override { return 15; }
  double twipsPerPixelY() const override { return 10; }
};

class Notes final : public host::MessageBox {
 public:
  std::string shown;
  void show(std::string_view text, std::int32_t style, std::string_view title) override {
    shown += std::string(title) + ": " + std::string(text) + " (" + std::to_string(style) + ")";
  }
};

enum class Kind { C128, C39, C39Checked, E13, E8 };

struct Drawn {
  RecordingCanvas canvas;
  std::string shown;
};

Drawn draw(Kind kind, std::int16_t height, std::string_view caption, bool hasCaption) {
  Drawn drawn;
  Notes notes;
  const odenBarcode barcode(notes);
  switch (kind) {
    case Kind::C128:
      barcode.Code128(drawn.canvas, height, caption, hasCaption);
      break;
    case Kind::C39:
      barcode.Code39(drawn.canvas, height, caption, false, hasCaption);
      break;
    case Kind::C39Checked:
      barcode.Code39(drawn.canvas, height, caption, true, hasCaption);
      break;
    case Kind::E13:
      barcode.EAN13(drawn.canvas, height, caption, hasCaption);
      break;
    case Kind::E8:
      barcode.EAN8(drawn.canvas, height, caption, hasCaption);
      break;
  }
  drawn.shown = notes.shown;
  return drawn;
}

TEST(OdenBarcode, SizesAndCaptions) {
  struct Row {
    Kind kind;
    std::string_view caption;
    bool hasCaption;
    std::string expected;
  };
  const std::string start = "clear back=16777215 redraw scale=3 ";
  // Height 5: bars of 50 pixels; (13 + 50 + 25) * 10 = 880 or (50 + 20) * 10 = 700 twips, noted in halves.
  const Row rows[] = {
      // (2 + 3) * 11 + 25 = 80 pixels; x ends at 1 + 4 * 11 + 13 = 58: (58 + 20) / 2 - 16 = 23
      {Kind::C128, "AB12", true, start + "h=1760/2 w=2400/2 x=46/2 y=130/2 print(AB12) keep"},
      {Kind::C128, "AB12", false, start + "h=1400/2 w=2400/2 keep"},
      // x ends at 1 + 11 + 13 = 25
      {Kind::C128, "", true, start + "h=1760/2 w=1740/2 x=45/2 y=130/2 print() keep"},
      // (2 + 3) * 12 + 20 = 80 times 16; x ends at 1 + 5 * 13 = 66: 43 - 8 = 35
      {Kind::C39Checked, "A1", true, start + "h=1760/2 w=2560/2 x=70/2 y=130/2 print(A1) keep"},
      {Kind::C39, "A1", false, start + "h=1400/2 w=2176/2 keep"},
      {Kind::E13, "400638133393", true,
       start + "h=1760/2 w=3840/2 y=130/2 x=46/2 y=120/2 print(006381) x=136/2 y=120/2 print(333931) keep"},
      {Kind::E13, "400638133393", false, start + "h=1400/2 w=3840/2 y=130/2 keep"},
      {Kind::E8, "9638507", true,
       start + "h=1760/2 w=2240/2 y=130/2 x=46/2 y=120/2 print(9638) x=106/2 y=120/2 print(5074) keep"},
      {Kind::E8, "9638507", false, start + "h=1400/2 w=2240/2 y=130/2 keep"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(draw(row.kind, 5, row.caption, row.hasCaption).canvas.calls, row.expected) << row.caption;
  }
}

TEST(OdenBarcode, OneColumnForEachModule) {
  struct Row {
    Kind kind;
    std::string_view caption;
    std::int32_t firstColumn;
    std::string guards;  // indexes of the first and last module of each longer pattern
  };
  const Row rows[] = {{Kind::C128, "AB1234", 12, ""},
                      {Kind::C39, "A1", 12, ""},
                      {Kind::E13, "400638133393", 16, "0-2 45-49 92-94 "},
                      {Kind::E8, "9638507", 16, "0-2 31-35 64-66 "}};
  for (const Row& row : rows) {
    for (const int height : {-3, 0, 5, 32767}) {
      ModuleString symbol;
      switch (row.kind) {
        case Kind::C128:
          encodeCode128(row.caption, TrailingDigits::FourOrMore, symbol);
          break;
        case Kind::E13:
          encodeEan13(row.caption, symbol);
          break;
        case Kind::E8:
          encodeEan8(row.caption, symbol);
          break;
        case Kind::C39:
        case Kind::C39Checked:
          encodeCode39(row.caption, WithCheckCharacter::No, symbol);
          break;
      }
      const auto bars = draw(row.kind, static_cast<std::int16_t>(height), row.caption, true).canvas.bars;
      ASSERT_EQ(bars.size(), symbol.text().size());
      std::string guards;
      const auto isGuard = [&](std::size_t at) { return at < bars.size() && bars[at].bottom == 15 + height * 10; };
      for (std::size_t at = 0; at < bars.size(); ++at) {
        EXPECT_EQ(bars[at].x, row.firstColumn + static_cast<int>(at));
        EXPECT_EQ(bars[at].top, 10);
        EXPECT_TRUE(isGuard(at) || bars[at].bottom == 10 + height * 10);
        EXPECT_EQ(bars[at].color, symbol.text()[at] == '1' ? 0 : 0xFFFFFF);
        if (isGuard(at) && (at == 0 || !isGuard(at - 1))) guards += std::to_string(at) + "-";
        if (isGuard(at) && !isGuard(at + 1)) guards += std::to_string(at) + " ";
      }
      EXPECT_EQ(guards, row.guards);
    }
  }
}

TEST(OdenBarcode, InvalidCaptionIsToldOnceAndLeavesTheCanvasCleared) {
  const Drawn drawn = draw(Kind::E8, 5, "96385074", true);
  EXPECT_EQ(drawn.canvas.calls, "clear ");
  EXPECT_TRUE(drawn.canvas.bars.empty());
  EXPECT_EQ(drawn.shown, "EAN-8: Should be 7 Digit Numbers (0)");
}

}  // namespace
}  // namespace qvn::barcode
