// A report as one HTML file that needs no other.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "qvn/reports/output_file.h"
#include "qvn/reports/report_sink.h"

namespace qvn::reports {

class HtmlSink final : public ReportSink {
 public:
  explicit HtmlSink(std::unique_ptr<OutputFile> file) : file_(std::move(file)) {}

  void begin(const ReportHead& head) override;
  void line(const ReportLine& line) override;
  void end() override;
  void drop() noexcept override { file_.reset(); }

 private:
  void addCaption(const ReportLine& line, std::size_t columns);
  void addCells(const ReportLine& line, std::size_t first);
  void addSums(const ReportLine& line);

  std::unique_ptr<OutputFile> file_;
  ReportHead head_;
  std::string text_;  // what one call writes
};

}  // namespace qvn::reports
