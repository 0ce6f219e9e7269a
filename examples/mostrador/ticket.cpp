#include "ticket.h"

#include <QFile>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <cmath>

#include "qvn/barcode/qt/widget_canvas.h"

namespace mostrador {
namespace {

constexpr double kPaperMillimetres = 80;
constexpr double kMargin = 4;
constexpr double kLine = 4.6;
constexpr int kDotsPerInch = 300;

// Writes downwards; lengths are millimetres.
class Paper {
 public:
  explicit Paper(QPainter& painter) : painter_(painter) {}

  void font(double points, bool isBold = false) {
    QFont font("DejaVu Sans");
    font.setPointSizeF(points);
    font.setBold(isBold);
    painter_.setFont(font);
  }
  void write(const QString& text, Qt::Alignment alignment = Qt::AlignLeft) {
    const QRectF place(dots(kMargin), dots(y_), dots(width()), dots(1000));
    QRectF used;
    painter_.drawText(place, static_cast<int>(alignment) | Qt::TextWordWrap, text, &used);
    y_ += std::max(kLine, used.height() * 25.4 / kDotsPerInch + 0.4);
  }
  void pair(const QString& left, const QString& right) {
    const QRectF place(dots(kMargin), dots(y_), dots(width()), dots(kLine));
    painter_.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, left);
    painter_.drawText(place, Qt::AlignRight | Qt::AlignVCenter, right);
    y_ += kLine;
  }
  void rule() {
    painter_.drawLine(QPointF(dots(kMargin), dots(y_ + 1)), QPointF(dots(kMargin + width()), dots(y_ + 1)));
    y_ += 2.5;
  }
  // Centred, with modules of a whole number of dots.
  void symbol(const qvn::barcode::Drawing& drawing) {
    constexpr int kDotsPerModule = 4;
    painter_.save();
    painter_.translate((dots(kPaperMillimetres) - drawing.width * kDotsPerModule) / 2, dots(y_));
    painter_.scale(kDotsPerModule, kDotsPerModule);
    QFont font("DejaVu Sans");
    font.setPixelSize(10);
    painter_.setFont(font);
    qvn::barcode::paintDrawing(painter_, drawing);
    painter_.restore();
    y_ += drawing.height * kDotsPerModule * 25.4 / kDotsPerInch;
  }

 private:
  static double dots(double millimetres) { return std::round(millimetres * kDotsPerInch / 25.4); }
  static double width() { return kPaperMillimetres - 2 * kMargin; }

  QPainter& painter_;
  double y_ = kMargin;
};

QString money(const qvn::LumLibreria& library, Cents cents) {
  return QString::fromStdString(library.Formato(toAmount(cents), "#,##0.00").toText());
}

QString inWords(const qvn::LumLibreria& library, Cents cents) {
  double amount = toAmount(cents);
  std::string legend = "M.N.";
  return QString::fromStdString(library.PonLetra(amount, legend, true, "PESOS"));
}

}  // namespace

std::string ticketDigits(std::int32_t sale) {
  const std::string number = std::to_string(sale);
  return "20" + std::string(10 - number.size(), '0') + number;
}

void printTicket(const qvn::LumLibreria& library, const ClosedSale& sale, const std::string& file) {
  QFile output(QString::fromStdString(file));
  if (!output.open(QIODevice::WriteOnly)) {
    throw qvn::RuntimeError(75, "No se pudo escribir " + file + ": " + output.errorString().toStdString());
  }
  QPdfWriter pdf(&output);
  pdf.setResolution(kDotsPerInch);
  const double height = 86 + 2 * kLine * static_cast<double>(sale.lines.size());
  pdf.setPageSize(QPageSize(QSizeF(kPaperMillimetres, height), QPageSize::Millimeter));
  pdf.setPageMargins({});
  pdf.setTitle("Ticket " + QString::number(sale.number));
  QPainter painter(&pdf);
  Paper paper(painter);
  paper.font(12, true);
  paper.write("Ferretería La Tuerca", Qt::AlignHCenter);
  paper.font(8);
  paper.write("Av. Juárez 145, Centro · Mérida, Yucatán", Qt::AlignHCenter);
  paper.pair("Venta " + QString::number(sale.number), QString::fromStdString(sale.date));
  paper.rule();
  for (const SaleLine& line : sale.lines) {
    paper.write(QString::fromStdString(line.product.name));
    paper.pair(QString::fromStdString("   " + library.Formato(line.quantity, "General Number").toText()) + " × " +
                   money(library, line.product.price),
               money(library, line.amount()));
  }
  paper.rule();
  paper.font(10, true);
  paper.pair("TOTAL", money(library, sale.payment.total));
  paper.font(8);
  paper.pair("Recibido", money(library, sale.payment.received));
  paper.pair("Cambio", money(library, sale.payment.change()));
  paper.write(inWords(library, sale.payment.total));
  paper.rule();
  paper.symbol(library.BarcodeEAN13(5, ticketDigits(sale.number), true)->drawing());
  paper.write("Gracias por su compra", Qt::AlignHCenter);
  painter.end();
  if (output.error() != QFileDevice::NoError || !output.flush()) {
    throw qvn::RuntimeError(75, "No se pudo escribir " + file + ": " + output.errorString().toStdString());
  }
}

}  // namespace mostrador
