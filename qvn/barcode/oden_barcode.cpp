#include "qvn/barcode/oden_barcode.h"

#include <optional>
#include <string>

#include "qvn/barcode/code39.h"
#include "qvn/barcode/ean.h"

namespace qvn::barcode {
namespace {

constexpr std::int32_t kBarTop = 10;
constexpr std::int32_t kColumnOfModule0 = 10;
constexpr std::int32_t kGuardExtension = 5;
constexpr std::int32_t kBlack = 0;
constexpr std::int32_t kWhite = 0xFFFFFF;
constexpr std::int16_t kPixels = 3;

std::int32_t barHeightOf(std::int16_t zBarH) { return std::int32_t{zBarH} * 10; }

class ModuleDrawer : public ModuleSink {
 public:
  ModuleDrawer(Canvas& canvas, std::int32_t firstX, std::int32_t barHeight)
      : canvas_(canvas), x_(firstX), barHeight_(barHeight) {}

  void append(std::string_view modules, BarLength length) override {
    const std::int32_t bottom = kBarTop + barHeight_ + (length == BarLength::Guard ? kGuardExtension : 0);
    for (const char module : modules) {
      ++x_;
      canvas_.Line(x_ + kColumnOfModule0, kBarTop, bottom, module == '1' ? kBlack : kWhite);
    }
    if (length == BarLength::Guard && !cursorPlaced_) {
      canvas_.CurrentY(barHeight_ + 15);
      cursorPlaced_ = true;
    }
  }
  [[nodiscard]] std::int32_t x() const noexcept { return x_; }

 private:
  Canvas& canvas_;
  std::int32_t x_;
  std::int32_t barHeight_;
  bool cursorPlaced_ = false;  // after the start guard alone
};

/// Tells the fault, if any; true when there is none.
bool prepare(Canvas& canvas, const std::optional<CaptionFault>& fault, host::MessageBox& messages) {
  canvas.clearPicture();
  if (fault) {
    messages.show(fault->message, 0, fault->title);
    return false;
  }
  canvas.BackColor(kWhite);
  canvas.AutoRedraw(true);
  canvas.ScaleMode(kPixels);
  return true;
}

void setHeight(Canvas& canvas, std::int32_t barHeight, std::string_view caption, bool hasCaption) {
  const double pixels = hasCaption ? canvas.TextHeight(caption) + barHeight + 25 : barHeight + 20;
  canvas.Height(pixels * canvas.twipsPerPixelY());
}

void printCentred(Canvas& canvas, std::int32_t x, std::int32_t barHeight, std::string_view caption) {
  canvas.CurrentX((x + 20) / 2.0 - canvas.TextWidth(caption) / 2);
  canvas.CurrentY(barHeight + 15);
  canvas.Print(caption);
}

void printAt(Canvas& canvas, std::int32_t x, std::int32_t barHeight, std::string_view text) {
  canvas.CurrentX(x);
  canvas.CurrentY(barHeight + 10);
  canvas.Print(text);
}

}  // namespace

void odenBarcode::Code128(Canvas& zObj, std::int16_t zBarH, std::string_view BarText, bool HasCaption) const {
  prepare(zObj, std::nullopt, messages_);
  const std::int32_t barHeight = barHeightOf(zBarH);
  setHeight(zObj, barHeight, BarText, HasCaption);
  zObj.Width(((estimatedSymbols(BarText) + 3) * 11 + 25) * zObj.twipsPerPixelX());
  ModuleDrawer drawer(zObj, 1, barHeight);
  encodeCode128(BarText, trailing_, drawer);
  if (HasCaption) {
    printCentred(zObj, drawer.x(), barHeight, BarText);
  }
  zObj.keepImage();
}

void odenBarcode::Code39(Canvas& zObj, std::int16_t zBarH, std::string_view BarText, bool zWithCheckSum,
                         bool HasCaption) const {
  if (!prepare(zObj, code39Fault(BarText), messages_)) {
    return;
  }
  const std::int32_t barHeight = barHeightOf(zBarH);
  setHeight(zObj, barHeight, BarText, HasCaption);
  // 16 twips a pixel whatever the screen's factor: hosts lay their labels out by these widths.
  zObj.Width((static_cast<double>(BarText.size() + (zWithCheckSum ? 3 : 2)) * 12 + 20) * 16);
  ModuleDrawer drawer(zObj, 1, barHeight);
  encodeCode39(BarText, zWithCheckSum ? WithCheckCharacter::Yes : WithCheckCharacter::No, drawer);
  if (HasCaption) {
    printCentred(zObj, drawer.x(), barHeight, BarText);
  }
  zObj.keepImage();
}

void odenBarcode::EAN13(Canvas& zObj, std::int16_t zBarH, std::string_view BarText, bool HasCaption) const {
  if (!prepare(zObj, ean13Fault(BarText), messages_)) {
    return;
  }
  const std::int32_t barHeight = barHeightOf(zBarH);
  setHeight(zObj, barHeight, BarText, HasCaption);
  zObj.Width(12 * 160);
  ModuleDrawer drawer(zObj, 5, barHeight);
  encodeEan13(BarText, drawer);
  if (HasCaption) {
    printAt(zObj, 23, barHeight, BarText.substr(1, 6));
    printAt(zObj, 68, barHeight, std::string(BarText.substr(7)) + checkDigit(BarText));
  }
  zObj.keepImage();
}

void odenBarcode::EAN8(Canvas& zObj, std::int16_t zBarH, std::string_view BarText, bool HasCaption) const {
  if (!prepare(zObj, ean8Fault(BarText), messages_)) {
    return;
  }
  const std::int32_t barHeight = barHeightOf(zBarH);
  setHeight(zObj, barHeight, BarText, HasCaption);
  zObj.Width(7 * 160);
  ModuleDrawer drawer(zObj, 5, barHeight);
  encodeEan8(BarText, drawer);
  if (HasCaption) {
    printAt(zObj, 23, barHeight, BarText.substr(0, 4));
    printAt(zObj, 53, barHeight, std::string(BarText.substr(4)) + checkDigit(BarText));
  }
  zObj.keepImage();
}

}  // namespace qvn::barcode
