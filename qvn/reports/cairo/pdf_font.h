// A font of reports, measured and shown by Cairo.
#pragma once

#include <string>
#include <string_view>

#include "qvn/cairo/handles.h"

namespace qvn::reports {

class PdfFont {
 public:
  enum class Weight { Normal, Bold };
  /// Throws RuntimeError 480 when Cairo refuses the font.
  PdfFont(double sizePoints, Weight weight);

  [[nodiscard]] double width(const std::string& text) const;
  /// The text, or as many of its first characters as fit into `limit` with "…" behind them.
  [[nodiscard]] std::string fitted(std::string_view text, double limit) const;
  void show(cairo_t* context, const std::string& text, double x, double baseline) const;

 private:
  cairo::ScaledFont font_;
};

}  // namespace qvn::reports
