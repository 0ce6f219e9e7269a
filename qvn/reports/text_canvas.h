// Pages as plain text, a form feed between two.
#pragma once

#include <cstddef>
#include <string>

#include "qvn/reports/page_canvas.h"

namespace qvn::reports {

struct TextPage {
  std::size_t columns = 0;  ///< characters; 0: as the report needs
  std::size_t lines = 66;   ///< 0: one page without end
};

class TextCanvas final : public PageCanvas {
 public:
  TextCanvas(const TextPage& page, ByteSink bytes) : page_(page), bytes_(std::move(bytes)) {}

  PageSize begin(std::size_t neededColumns) override;
  void beginPage() override;
  void put(const PlacedText& text) override;
  void put(const PlacedRule& rule) override;
  void endPage() override;
  void finish() override {}

 private:
  void moveTo(std::size_t line, std::size_t column);
  void append(std::string_view text, std::size_t characters);
  void endLine();

  TextPage page_;
  ByteSink bytes_;
  bool isFirstPage_ = true;
  std::size_t line_ = 0;    // of the page
  std::string text_;        // of the line
  std::size_t column_ = 0;  // characters in it
};

}  // namespace qvn::reports
