#include "qvn/reports/report_file.h"

#include <array>
#include <string>

#include "qvn/base/letter_case.h"
#include "qvn/base/path.h"
#include "qvn/base/runtime_error.h"
#include "qvn/reports/html_sink.h"
#include "qvn/reports/paged_sink.h"

namespace qvn::reports {
namespace {

using FilePtr = std::unique_ptr<OutputFile>;
using SinkMaker = std::unique_ptr<ReportSink> (*)(std::string_view path, const ReportFileSettings& settings);

FilePtr openFile(std::string_view path, const ReportFileSettings& settings) {
  return std::make_unique<OutputFile>(path, settings.onExisting);
}

ByteSink bytesTo(OutputFile& file) {
  return [&file](std::string_view bytes) { file.write(bytes); };
}

std::unique_ptr<ReportSink> newText(std::string_view path, const ReportFileSettings& settings) {
  FilePtr file = openFile(path, settings);
  auto canvas = std::make_unique<TextCanvas>(settings.textPage, bytesTo(*file));
  return std::make_unique<PagedSink>(std::move(canvas), std::move(file));
}

std::unique_ptr<ReportSink> newHtml(std::string_view path, const ReportFileSettings& settings) {
  return std::make_unique<HtmlSink>(openFile(path, settings));
}

std::unique_ptr<ReportSink> newPdf(std::string_view path, const ReportFileSettings& settings) {
  FilePtr file = openFile(path, settings);
  auto canvas = newPdfCanvas(settings.paper, bytesTo(*file));
  return std::make_unique<PagedSink>(std::move(canvas), std::move(file));
}

struct Ending {
  std::string_view text;
  SinkMaker make;
};
constexpr auto kEndings =
    std::to_array<Ending>({{".txt", newText}, {".html", newHtml}, {".htm", newHtml}, {".pdf", newPdf}});

}  // namespace

std::unique_ptr<ReportSink> newReportFile(std::string_view path, const ReportFileSettings& settings) {
  const std::string extension = hostPath(path).extension().string();
  for (const Ending& ending : kEndings) {
    if (equalIgnoringCase(extension, ending.text)) return ending.make(path, settings);
  }
  throw RuntimeError(error_number::kInvalidCall,
                     "El nombre del archivo de un informe termina en .txt, .html o .pdf: «" + std::string(path) + "»");
}

}  // namespace qvn::reports
