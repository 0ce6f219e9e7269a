#include "qvn/exports/xlsxwriter/xlsx_workbook.h"

#include <xlsxwriter.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <utility>
#include <vector>

#include "qvn/base/utf8.h"
#include "qvn/exports/cell.h"
#include "qvn/exports/xlsxwriter/escaped_text.h"
#include "qvn/exports/xlsxwriter/written_sheets.h"
#include "qvn/host/file_error.h"

namespace qvn::exports {
namespace {

constexpr lxw_color_t kHeadingColor = 0xDDE6F0;

struct FreeWorkbook {
  void operator()(lxw_workbook* workbook) const noexcept { lxw_workbook_free(workbook); }
};

// The library keeps the system's code to itself, and by then it may be gone.
std::error_code lastCode(std::errc forgotten) {
  return errno == 0 ? std::make_error_code(forgotten) : std::error_code(errno, std::generic_category());
}

class XlsxWorkbook final : public WorkbookWriter {
 public:
  explicit XlsxWorkbook(WorkbookFile file) : file_(std::move(file)) {
    std::string folder = std::filesystem::path(file_.path).parent_path().string();
    if (folder.empty()) folder = ".";
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folder.data();
    workbook_.reset(workbook_new_opt(file_.path.c_str(), &options));
    if (!workbook_) refuse(LXW_ERROR_MEMORY_MALLOC_FAILED);
  }

  Look addLook(const CellLook& look) override;
  void beginSheet(const std::string& name) override;
  void writeNumber(Place place, double number, Look look) override;
  void writeBoolean(Place place, bool flag, Look look) override;
  void writeText(Place place, const std::string& text, Look look) override;
  void writeFormula(Place place, const std::string& formula, double result, Look look) override;
  void setFilter(Place last) override;
  void endSheet(const SheetLook& look) override;
  void close() override;

 private:
  struct KnownLook {
    CellLook look;
    lxw_format* format;
  };

  [[nodiscard]] host::FileAttempt attempt() const {
    return {.verb = "escribir la hoja de cálculo", .path = file_.shownAs};
  }
  [[noreturn]] void refuse(lxw_error error) const;
  void check(lxw_error error) const {
    if (error != LXW_NO_ERROR) refuse(error);
  }
  void enterRow(std::uint32_t row);
  void requireTemporaryFile() const;
  [[nodiscard]] lxw_format* formatOf(Look look) const { return looks_[look].format; }

  WorkbookFile file_;
  std::unique_ptr<lxw_workbook, FreeWorkbook> workbook_;
  std::vector<KnownLook> looks_;
  lxw_worksheet* sheet_ = nullptr;
  std::optional<std::uint32_t> row_;
  std::vector<std::int64_t> rowsOfSheets_;
};

void XlsxWorkbook::refuse(lxw_error error) const {
  switch (error) {
    case LXW_ERROR_CREATING_XLSX_FILE:
    case LXW_ERROR_CREATING_TMPFILE:
    case LXW_ERROR_READING_TMPFILE:
    case LXW_ERROR_ZIP_FILE_OPERATION:
    case LXW_ERROR_ZIP_FILE_ADD:
    case LXW_ERROR_ZIP_CLOSE:
      throw host::fileError(lastCode(std::errc::io_error), attempt());
    default:  // what the rest mean is only in the library's own words
      throw RuntimeError(error_number::kDeviceError,
                         "No se pudo escribir la hoja de cálculo «" + file_.shownAs + "»: " + lxw_strerror(error));
  }
}

WorkbookWriter::Look XlsxWorkbook::addLook(const CellLook& look) {
  for (std::size_t i = 0; i < looks_.size(); ++i) {
    if (looks_[i].look == look) return i;
  }
  lxw_format* const format = workbook_add_format(workbook_.get());
  if (format == nullptr) refuse(LXW_ERROR_MEMORY_MALLOC_FAILED);
  if (!look.pattern.empty()) format_set_num_format(format, look.pattern.c_str());
  if (look.part != CellLook::Part::Data) format_set_bold(format);
  if (look.part == CellLook::Part::Heading) {
    format_set_bottom(format, LXW_BORDER_THIN);
    format_set_bg_color(format, kHeadingColor);
  }
  if (look.part == CellLook::Part::Total) format_set_top(format, LXW_BORDER_THIN);
  looks_.push_back({look, format});
  return looks_.size() - 1;
}

void XlsxWorkbook::beginSheet(const std::string& name) {
  errno = 0;
  sheet_ = workbook_add_worksheet(workbook_.get(), name.c_str());
  if (sheet_ == nullptr) refuse(LXW_ERROR_CREATING_TMPFILE);
  rowsOfSheets_.push_back(0);
  row_.reset();
}

// The library drops what its temporary file refuses.
void XlsxWorkbook::requireTemporaryFile() const {
  if (std::ferror(sheet_->optimize_tmpfile) == 0) return;
  errno = 0;
  std::fflush(sheet_->optimize_tmpfile);
  throw host::fileError(lastCode(std::errc::no_space_on_device), attempt());
}

void XlsxWorkbook::enterRow(std::uint32_t row) {
  if (row_ == row) return;
  requireTemporaryFile();
  row_ = row;
  ++rowsOfSheets_.back();
}

void XlsxWorkbook::writeNumber(Place place, double number, Look look) {
  enterRow(place.row);
  check(worksheet_write_number(sheet_, place.row, place.column, number, formatOf(look)));
}

void XlsxWorkbook::writeBoolean(Place place, bool flag, Look look) {
  enterRow(place.row);
  check(worksheet_write_boolean(sheet_, place.row, place.column, flag ? 1 : 0, formatOf(look)));
}

void XlsxWorkbook::writeText(Place place, const std::string& text, Look look) {
  enterRow(place.row);
  if (!xlsxwriter::needsEscape(text)) {
    check(worksheet_write_string(sheet_, place.row, place.column, text.c_str(), formatOf(look)));
    return;
  }
  // Escapes may make a text of the greatest length too long.
  const std::string escaped(utf8::left(xlsxwriter::escapedText(text), kMostTextUnits));
  check(worksheet_write_string(sheet_, place.row, place.column, escaped.c_str(), formatOf(look)));
}

void XlsxWorkbook::writeFormula(Place place, const std::string& formula, double result, Look look) {
  enterRow(place.row);
  check(worksheet_write_formula_num(sheet_, place.row, place.column, formula.c_str(), formatOf(look), result));
}

void XlsxWorkbook::setFilter(Place last) { check(worksheet_autofilter(sheet_, 0, 0, last.row, last.column)); }

void XlsxWorkbook::endSheet(const SheetLook& look) {
  for (std::size_t i = 0; i < look.widths.size(); ++i) {
    const auto column = static_cast<lxw_col_t>(i);
    check(worksheet_set_column(sheet_, column, column, look.widths[i], nullptr));
  }
  if (look.isFrozen) worksheet_freeze_panes(sheet_, 1, 0);
}

void XlsxWorkbook::close() {
  errno = 0;
  check(workbook_close(workbook_.release()));
  std::error_code ignored;  // what is no regular file, such as a device, cannot be read back
  if (!std::filesystem::is_regular_file(file_.path, ignored)) return;
  if (xlsxwriter::holdsSheets(file_.path, rowsOfSheets_)) return;
  throw host::fileError(error_number::kDiskFull, attempt());
}

}  // namespace

std::unique_ptr<WorkbookWriter> newXlsxWorkbook(const WorkbookFile& file) {
  return std::make_unique<XlsxWorkbook>(file);
}

}  // namespace qvn::exports
