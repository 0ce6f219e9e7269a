// The seam to what writes workbook files: sheet after sheet, row after row, each row once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qvn::exports {

/// How a cell looks.
struct CellLook {
  enum class Part { Data, Heading, Total };
  std::string pattern = {};  ///< a number format as sheets know it, "#,##0.00"; "" shows the value in general
  Part part = Part::Data;
  friend bool operator==(const CellLook&, const CellLook&) = default;
};

/// How a sheet looks; rows and columns count from 0.
struct SheetLook {
  std::vector<double> widths = {};  ///< of the columns, in characters
  bool isFrozen = false;            ///< the first row stays when the others scroll
};

/// Texts are UTF-8 without characters that no XML file holds, of at most kMostTextUnits. Everything throws RuntimeError
/// when the system refuses to write; then the writer is of no use any more.
class WorkbookWriter {
 public:
  using Look = std::size_t;
  /// In its sheet.
  struct Place {
    std::uint32_t row = 0;
    std::uint16_t column = 0;
  };

  /// Without close() nothing of use is left in the file.
  virtual ~WorkbookWriter() = default;

  /// Equal looks are one.
  virtual Look addLook(const CellLook& look) = 0;

  /// The name is one that sheets can have, and no other sheet has.
  virtual void beginSheet(const std::string& name) = 0;
  // To the sheet that was begun last. Rows come in their order.
  virtual void writeNumber(Place place, double number, Look look) = 0;
  virtual void writeBoolean(Place place, bool flag, Look look) = 0;
  virtual void writeText(Place place, const std::string& text, Look look) = 0;
  /// "=SUM(A2:A9)" with the number that it comes to.
  virtual void writeFormula(Place place, const std::string& formula, double result, Look look) = 0;
  /// A filter on the first row, over the columns and rows up to that place, whose row is the last that was written.
  virtual void setFilter(Place last) = 0;
  virtual void endSheet(const SheetLook& look) = 0;

  /// Completes the file.
  virtual void close() = 0;
};

struct WorkbookFile {
  std::string path;     ///< is made or emptied
  std::string shownAs;  ///< what people know it by
};

/// A writer to that file. Throws RuntimeError when the system refuses.
using WorkbookMaker = std::unique_ptr<WorkbookWriter> (*)(const WorkbookFile& file);

/// Makes the writers from now on. Adapters register themselves when a host links them.
void registerWorkbookWriter(WorkbookMaker maker);

/// The registered maker. Throws RuntimeError 429 when there is none.
WorkbookMaker workbookMaker();

}  // namespace qvn::exports
