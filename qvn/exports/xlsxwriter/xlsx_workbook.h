// Workbook files written by libxlsxwriter.
#pragma once

#include <memory>

#include "qvn/exports/workbook_writer.h"

namespace qvn::exports {

/// Rows pass through temporary files, one for each sheet, in the folder of the environment's TMPDIR or else in that of
/// the file; they have no name and go with the process. Besides throwing, the library tells on standard error when it
/// cannot put the workbook together.
std::unique_ptr<WorkbookWriter> newXlsxWorkbook(const WorkbookFile& file);

}  // namespace qvn::exports
