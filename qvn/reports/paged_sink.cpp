#include "qvn/reports/paged_sink.h"

#include <algorithm>
#include <string>

#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"

namespace qvn::reports {
namespace {

using Kind = ReportLine::Kind;

constexpr std::size_t kGap = 2;     // characters between columns
constexpr std::size_t kIndent = 2;  // of a group inside another
constexpr std::size_t kPageNumberWidth = 14;
// A blank line, the caption of a sum, the rule above it and the sum.
constexpr std::size_t kFewestBodyLines = 4;

}  // namespace

void PagedSink::begin(const ReportHead& head) {
  head_ = head;
  placeColumns();
  size_ = canvas_->begin(tableWidth_);
  beginPage();
}

void PagedSink::placeColumns() {
  std::size_t at = 0;
  for (const HeadColumn& column : head_.columns) {
    starts_.push_back(at);
    at += column.width + kGap;
  }
  tableWidth_ = at - kGap;
}

void PagedSink::beginPage() {
  canvas_->beginPage();
  ++pageNumber_;
  line_ = 0;
  putTitles();
  ++line_;
  putHeadings();
  bodyStart_ = line_;
  if (size_.lines != 0 && size_.lines < bodyStart_ + kFewestBodyLines) {
    throw RuntimeError(error_number::kInvalidCall, "En la página del informe caben " + std::to_string(size_.lines) +
                                                       " renglones y hacen falta " +
                                                       std::to_string(bodyStart_ + kFewestBodyLines));
  }
}

void PagedSink::putTitles() {
  const std::size_t numberWidth = size_.lines == 0 ? 0 : std::min(size_.columns, kPageNumberWidth);
  const std::size_t titleWidth = size_.columns - numberWidth;
  canvas_->put(PlacedText{.text = head_.title, .line = line_, .width = titleWidth, .look = TextLook::Title});
  const std::string number = "Página " + std::to_string(pageNumber_);
  if (numberWidth != 0) {
    canvas_->put(PlacedText{.text = number,
                            .line = line_,
                            .at = titleWidth,
                            .width = numberWidth,
                            .alignment = Alignment::Right,
                            .look = TextLook::PageNumber});
  }
  ++line_;
  if (head_.subtitle.empty()) return;
  canvas_->put(PlacedText{.text = head_.subtitle, .line = line_, .width = size_.columns, .look = TextLook::Subtitle});
  ++line_;
}

void PagedSink::putHeadings() {
  for (std::size_t i = 0; i < starts_.size(); ++i) {
    const HeadColumn& column = head_.columns[i];
    canvas_->put(PlacedText{.text = column.heading,
                            .line = line_,
                            .at = starts_[i],
                            .width = column.width,
                            .alignment = column.alignment,
                            .look = TextLook::Heading});
  }
  ++line_;
  for (std::size_t i = 0; i < starts_.size(); ++i) {
    canvas_->put(PlacedRule{.line = line_, .at = starts_[i], .width = head_.columns[i].width});
  }
  ++line_;
}

void PagedSink::makeRoom(std::size_t lines) {
  // More than a page holds begins on a page of its own.
  if (size_.lines == 0 || line_ + lines <= size_.lines || line_ == bodyStart_) return;
  canvas_->endPage();
  beginPage();
}

void PagedSink::line(const ReportLine& line) {
  switch (line.kind) {
    case Kind::GroupStart:
      captions_.push_back(line);
      return;
    case Kind::Row:
      showCaptions();
      showRow(line);
      return;
    case Kind::Subtotal:
    case Kind::Total:
      showSums(line);
      return;
    case Kind::Note:
      showNote(line);
      return;
  }
}

void PagedSink::showCaptions() {
  if (captions_.empty()) return;
  const bool isSeparated = line_ != bodyStart_;
  makeRoom((isSeparated ? 1 : 0) + captions_.size() + 1);
  if (isSeparated && line_ != bodyStart_) ++line_;
  for (const ReportLine& caption : captions_) {
    makeRoom(1);
    putCaption(caption, size_.columns, TextLook::Group);
    ++line_;
  }
  captions_.clear();
}

void PagedSink::putCaption(const ReportLine& line, std::size_t width, TextLook look) {
  const std::size_t at = std::min(line.level * kIndent, width);
  canvas_->put(PlacedText{.text = line.caption, .line = line_, .at = at, .width = width - at, .look = look});
}

void PagedSink::putCells(const ReportLine& line, TextLook look) {
  for (std::size_t i = 0; i < line.cells.size(); ++i) {
    const ReportCell& cell = line.cells[i];
    if (cell.text.empty()) continue;
    canvas_->put(PlacedText{.text = cell.text,
                            .line = line_,
                            .at = starts_[i],
                            .width = head_.columns[i].width,
                            .alignment = head_.columns[i].alignment,
                            .look = look,
                            .isNumber = cell.isNumber});
  }
}

void PagedSink::showRow(const ReportLine& line) {
  makeRoom(1);
  putCells(line, TextLook::Cell);
  ++line_;
}

// Characters that a caption may take to the left of the sums.
std::size_t PagedSink::roomBeforeSums(const ReportLine& line) const {
  const std::size_t first = firstNumber(line);
  if (first == line.cells.size()) return size_.columns;
  return first == 0 ? 0 : starts_[first] - kGap;
}

void PagedSink::showSums(const ReportLine& line) {
  const std::size_t room = roomBeforeSums(line);
  const bool isBeside = line.level * kIndent + utf8::length(line.caption) <= room;
  makeRoom(isBeside ? 2 : 3);
  if (!isBeside) {
    putCaption(line, size_.columns, TextLook::Total);
    ++line_;
  }
  showSumRules(line);
  ++line_;
  if (isBeside) putCaption(line, room, TextLook::Total);
  putCells(line, TextLook::Total);
  ++line_;
}

void PagedSink::showSumRules(const ReportLine& line) {
  for (std::size_t i = 0; i < line.cells.size(); ++i) {
    if (!line.cells[i].isNumber) continue;
    canvas_->put(PlacedRule{.line = line_,
                            .at = starts_[i],
                            .width = head_.columns[i].width,
                            .look = line.kind == Kind::Total ? PlacedRule::Look::Total : PlacedRule::Look::Subtotal});
  }
}

void PagedSink::showNote(const ReportLine& line) {
  makeRoom(1);
  putCaption(line, size_.columns, TextLook::Note);
  ++line_;
}

void PagedSink::end() {
  canvas_->endPage();
  canvas_->finish();
  canvas_.reset();
  file_->publish();
  file_.reset();
}

void PagedSink::drop() noexcept {
  canvas_.reset();
  file_.reset();
}

}  // namespace qvn::reports
