#include "qvn/reports/text_canvas.h"

#include <algorithm>

#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/reports/line_text.h"

namespace qvn::reports {
namespace {

// Room for a title and the page number above narrow columns.
constexpr std::size_t kFewestColumns = 40;

std::string shownText(const PlacedText& text) {
  if (text.isNumber && utf8::length(text.text) > text.width) return std::string(text.width, '#');
  return cutText(text.text, text.width);
}

std::size_t indent(Alignment alignment, std::size_t free) {
  switch (alignment) {
    case Alignment::Automatic:
    case Alignment::Left:
      return 0;
    case Alignment::Right:
      return free;
    case Alignment::Center:
      return free / 2;
  }
  return 0;
}

}  // namespace

PageSize TextCanvas::begin(std::size_t neededColumns) {
  if (page_.columns != 0 && page_.columns < neededColumns) {
    throw RuntimeError(error_number::kInvalidCall, "Las columnas del informe ocupan " + std::to_string(neededColumns) +
                                                       " caracteres y en la página caben " +
                                                       std::to_string(page_.columns));
  }
  return {page_.columns != 0 ? page_.columns : std::max(neededColumns, kFewestColumns), page_.lines};
}

void TextCanvas::beginPage() {
  if (!isFirstPage_) bytes_("\f");
  isFirstPage_ = false;
  line_ = 0;
}

void TextCanvas::endLine() {
  // What was put last may have been blank.
  text_.erase(text_.find_last_not_of(' ') + 1);
  text_.push_back('\n');
  bytes_(text_);
  text_.clear();
  column_ = 0;
  ++line_;
}

void TextCanvas::moveTo(std::size_t line, std::size_t column) {
  while (line_ < line) endLine();
  if (column > column_) append(std::string(column - column_, ' '), column - column_);
}

void TextCanvas::append(std::string_view text, std::size_t characters) {
  text_.append(text);
  column_ += characters;
}

void TextCanvas::put(const PlacedText& text) {
  const std::string shown = shownText(text);
  const std::size_t length = utf8::length(shown);
  if (length == 0) return;
  moveTo(text.line, text.at + indent(text.alignment, text.width - length));
  append(shown, length);
}

void TextCanvas::put(const PlacedRule& rule) {
  moveTo(rule.line, rule.at);
  append(std::string(rule.width, rule.look == PlacedRule::Look::Total ? '=' : '-'), rule.width);
}

void TextCanvas::endPage() {
  if (!text_.empty()) endLine();
}

}  // namespace qvn::reports
