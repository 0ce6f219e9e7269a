// Files of reports by the ending of their names.
#pragma once

#include <memory>
#include <string_view>

#include "qvn/reports/output_file.h"
#include "qvn/reports/paper.h"
#include "qvn/reports/report_sink.h"
#include "qvn/reports/text_canvas.h"

namespace qvn::reports {

/// Members have initializers so that a host names only those that it sets.
struct ReportFileSettings {
  OnExisting onExisting = OnExisting::Refuse;
  Paper paper = Paper::Letter;  ///< of PDF files
  TextPage textPage = {};       ///< of text files
};

/// A sink to a file that appears when the report is complete: ".txt" is plain text on pages, ".html" or ".htm" one file
/// that needs no other, ".pdf" goes to the printer.
/// @throws RuntimeError  5 for another ending, 58 when the file exists and is not to be replaced, 429 for a PDF when no
///         adapter is linked, or what the system refuses: 70, 76, ...
std::unique_ptr<ReportSink> newReportFile(std::string_view path, const ReportFileSettings& settings = {});

}  // namespace qvn::reports
