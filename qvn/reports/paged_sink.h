// A report laid out on pages, with its headings on each.
#pragma once

#include <memory>
#include <vector>

#include "qvn/reports/output_file.h"
#include "qvn/reports/page_canvas.h"
#include "qvn/reports/report_sink.h"

namespace qvn::reports {

/// A group's caption stays with its first row and a sum with its caption.
class PagedSink final : public ReportSink {
 public:
  PagedSink(std::unique_ptr<PageCanvas> canvas, std::unique_ptr<OutputFile> file)
      : file_(std::move(file)), canvas_(std::move(canvas)) {}

  /// Throws also RuntimeError 5 for a page that is too small.
  void begin(const ReportHead& head) override;
  void line(const ReportLine& line) override;
  void end() override;
  void drop() noexcept override;

 private:
  void placeColumns();
  void beginPage();
  void putTitles();
  void putHeadings();
  void makeRoom(std::size_t lines);
  void showCaptions();
  void showRow(const ReportLine& line);
  void showSums(const ReportLine& line);
  void showSumRules(const ReportLine& line);
  void showNote(const ReportLine& line);
  void putCaption(const ReportLine& line, std::size_t width, TextLook look);
  void putCells(const ReportLine& line, TextLook look);
  [[nodiscard]] std::size_t roomBeforeSums(const ReportLine& line) const;

  std::unique_ptr<OutputFile> file_;
  std::unique_ptr<PageCanvas> canvas_;  // goes before the file that it writes
  ReportHead head_;
  PageSize size_{};
  std::vector<std::size_t> starts_;  // of the columns, in characters from the left
  std::size_t tableWidth_ = 0;
  std::size_t bodyStart_ = 0;  // first line under the headings
  std::size_t line_ = 0;       // the next one of the page
  int pageNumber_ = 0;
  std::vector<ReportLine> captions_;  // of groups whose first row is still to come
};

}  // namespace qvn::reports
