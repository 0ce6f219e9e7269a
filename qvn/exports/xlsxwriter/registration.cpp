// The workbooks of the library are written by libxlsxwriter.
#include "qvn/exports/workbook_writer.h"
#include "qvn/exports/xlsxwriter/xlsx_workbook.h"

namespace {

[[maybe_unused]] const bool kIsRegistered =
    (qvn::exports::registerWorkbookWriter(&qvn::exports::newXlsxWorkbook), true);

}  // namespace
