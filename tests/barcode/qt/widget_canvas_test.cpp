// A barcode on a host's widget, pixel by pixel.
#include "qvn/barcode/qt/widget_canvas.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <memory>

#include "qvn/barcode/oden_barcode.h"
#include "qvn/barcode/symbol.h"
#include "tests/support/recorded_messages.h"

namespace qvn::barcode {
namespace {

std::string modulesInRow(const QImage& image, int y, int firstColumn, std::size_t count) {
  std::string modules;
  for (int i = 0; i < static_cast<int>(count); ++i) {
    modules += qGray(image.pixel(firstColumn + i, y)) < 128 ? '1' : '0';
  }
  return modules;
}

TEST(WidgetCanvas, PaintsIntoTheHostsWidget) {
  QWidget widget;
  auto* const canvas = new WidgetCanvas(widget);
  ASSERT_EQ(canvas->twipsPerPixelX(), 15) << "the offscreen platform has 96 dots an inch";
  test::RecordedMessages messages;
  const odenBarcode barcode(messages);
  barcode.EAN13(*canvas, 5, "400638133393", true);
  const QImage image = widget.grab().toImage();
  ASSERT_EQ(image.width(), 128);
  ASSERT_EQ(widget.height(), image.height());
  const std::string modules = moduleString({.symbology = Symbology::Ean13, .caption = "400638133393"});
  for (const int y : {10, 35, 59}) EXPECT_EQ(modulesInRow(image, y, 16, modules.size()), modules) << y;
  const std::string nothing(modules.size(), '0');
  EXPECT_EQ(modulesInRow(image, 9, 16, modules.size()), nothing);
  EXPECT_EQ(modulesInRow(image, 64, 16, 3), "101");
  EXPECT_EQ(modulesInRow(image, 65, 16, 3), "000");
  int captionRows = 0;
  for (int y = 65; y < image.height(); ++y)
    captionRows += modulesInRow(image, y, 16, modules.size()) != nothing ? 1 : 0;
  EXPECT_GT(captionRows, 3);
  // An invalid caption leaves the host's own background.
  barcode.EAN13(*canvas, 5, "4006", true);
  EXPECT_EQ(modulesInRow(widget.grab().toImage(), 35, 16, modules.size()), nothing);
  EXPECT_EQ(messages.shown.size(), 1U);
}

TEST(WidgetCanvas, TakesAnyHeight) {
  QWidget widget;
  auto* const canvas = new WidgetCanvas(widget);
  test::RecordedMessages messages;
  odenBarcode(messages).Code39(*canvas, 32767, "A", false, true);
  EXPECT_EQ(widget.height(), canvas->kept().height);
  EXPECT_GT(widget.height(), 327670);
  odenBarcode(messages).Code39(*canvas, -32768, "A", false, false);
  EXPECT_EQ(widget.height(), 0);
}

}  // namespace
}  // namespace qvn::barcode

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
