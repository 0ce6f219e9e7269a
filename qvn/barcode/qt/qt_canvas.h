// A canvas in a window: a QLabel as the picture control of a host.
//
//   QLabel control;
//   QtCanvas canvas(control);
//   odenBarcode(messages).EAN13(canvas, 5, "750103131130", true);
#pragma once

#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <memory>

#include "qvn/barcode/canvas.h"
#include "qvn/barcode/picture.h"

namespace qvn::barcode {

/// Sizes are in the screen's logical pixels; on a screen of twice the size a module is two of its pixels wide. The
/// font is the control's own. Needs a QApplication.
class QtCanvas final : public Canvas {
 public:
  /// Draws into `control`, which must outlive the canvas.
  explicit QtCanvas(QLabel& control) : control_(control) {}
  /// Draws into a control of its own that is never shown; picture() gives the result.
  QtCanvas() : own_(std::make_unique<QLabel>()), control_(*own_) {}

  /// The control's picture; a null one before the image is kept.
  [[nodiscard]] QPixmap picture() const { return control_.pixmap(); }

  void clearPicture() override;
  void keepImage() override;
  void BackColor(std::int32_t color) override;
  void AutoRedraw(bool /*redraws*/) override {}
  void ScaleMode(std::int16_t /*mode*/) override {}
  void Height(double twips) override;
  void Width(double twips) override;
  void CurrentX(double x) override { x_ = x; }
  void CurrentY(double y) override { y_ = y; }
  double TextHeight(std::string_view text) override;
  double TextWidth(std::string_view text) override;
  void Line(std::int32_t x, std::int32_t top, std::int32_t bottom, std::int32_t color) override;
  void Print(std::string_view text) override;
  [[nodiscard]] double twipsPerPixelX() const override;
  [[nodiscard]] double twipsPerPixelY() const override;

 private:
  void resize(int width, int height);

  std::unique_ptr<QLabel> own_;
  QLabel& control_;
  QImage drawn_;
  QColor background_ = Qt::white;
  int width_ = 0;
  int height_ = 0;
  double x_ = 0;
  double y_ = 0;
};

/// Shows a picture of the library in a control of a window; an empty one clears it. Throws as Picture::image().
void show(const Picture& picture, QLabel& control);

}  // namespace qvn::barcode
