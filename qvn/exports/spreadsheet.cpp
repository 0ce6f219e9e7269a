#include "qvn/exports/spreadsheet.h"

#include <cerrno>
#include <fstream>

#include "qvn/base/runtime_error.h"
#include "qvn/exports/sheet_names.h"
#include "qvn/exports/sheet_writer.h"
#include "qvn/exports/workbook_writer.h"
#include "qvn/host/file_error.h"
#include "qvn/host/require.h"

namespace qvn::exports {
namespace {

constexpr std::string_view kWriteVerb = "escribir la hoja de cálculo";

// Says at once what a writer would find out behind the last row.
void requireWritable(const std::string& name, std::string_view path) {
  errno = 0;
  if (!std::ofstream(name, std::ios::binary | std::ios::app)) {
    throw host::fileError(std::error_code(errno, std::generic_category()), {.verb = kWriteVerb, .path = path});
  }
}

}  // namespace

// The writer goes before the file that it writes.
struct SpreadsheetExport::Workbook {
  Workbook(std::string_view path, OnExisting onExisting) : file(path, onExisting, kWriteVerb) {
    const WorkbookMaker maker = workbookMaker();
    requireWritable(file.name(), path);
    writer = maker({.path = file.name(), .shownAs = std::string(path)});
  }

  host::ReplacedFile file;
  std::unique_ptr<WorkbookWriter> writer;
  SheetNames names;
};

SpreadsheetExport::SpreadsheetExport() = default;
SpreadsheetExport::~SpreadsheetExport() = default;

void SpreadsheetExport::Open(std::string_view path, OnExisting onExisting) {
  Cancel();
  report_ = {};
  workbook_ = std::make_unique<Workbook>(path, onExisting);
}

SpreadsheetExport::Workbook& SpreadsheetExport::opened() {
  if (!workbook_) throw RuntimeError(error_number::kBadFileName, "No hay una hoja de cálculo abierta");
  return *workbook_;
}

bool SpreadsheetExport::AddSheet(const data::RecordsetPtr& rows, const SheetSettings& settings,
                                 const ExportObserver& observe) {
  Workbook& workbook = opened();
  bool isComplete = false;
  try {
    SheetWriter sheet(*host::required(rows), settings, {*workbook.writer, workbook.names, report_});
    isComplete = sheet.write(observe);
  } catch (...) {
    Cancel();
    throw;
  }
  if (!isComplete) Cancel();
  return isComplete;
}

void SpreadsheetExport::Close() {
  opened();
  const std::unique_ptr<Workbook> workbook = std::move(workbook_);
  if (report_.sheets == 0) {
    throw RuntimeError(error_number::kInvalidCall, "La hoja de cálculo está vacía: agregue una hoja antes de cerrarla");
  }
  workbook->writer->close();
  workbook->file.publish();
}

void SpreadsheetExport::Cancel() noexcept { workbook_.reset(); }

}  // namespace qvn::exports
