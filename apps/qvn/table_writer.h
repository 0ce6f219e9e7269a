// Rows as a table with aligned columns, for people.
//
//   TableWriter table(out, {"documento", "saldo"});
//   table.add({numberCell("1001"), numberCell("1,160.00")});
//   table.end();
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "apps/qvn/output.h"

namespace qvn::cli {

/// One value of a row; its text is safe for a terminal (see safeText).
struct Cell {
  enum class Kind { Text, Number, Null };
  std::string text;
  Kind kind = Kind::Text;
};

inline Cell numberCell(std::string text) { return {std::move(text), Cell::Kind::Number}; }
inline Cell textCell(std::string text) { return {std::move(text), Cell::Kind::Text}; }
/// The database's NULL, told from every text by its marks.
inline Cell nullCell() { return {"<NULL>", Cell::Kind::Null}; }

/// Columns are as wide as the longest of their first values; memory does not grow with the number of rows. A column is
/// aligned to the right when those values are numbers. A later, longer value is written whole and pushes the rest of
/// its line aside.
class TableWriter {
 public:
  /// `indent` blanks stand before each line.
  TableWriter(Output& out, std::vector<std::string> titles, std::size_t indent = 0);

  /// `row` has one cell for each title.
  void add(std::vector<Cell> row);
  /// Writes what is still held back.
  void end();

 private:
  struct Column {
    std::string title;
    std::size_t width;
    bool isNumeric;
  };

  void writeHeldBack();
  void writeHeader();
  void writeRow(const std::vector<Cell>& row);
  void appendPadded(std::string_view text, const Column& column);
  void endLine();

  Output& out_;
  std::vector<Column> columns_;
  std::string margin_;
  std::vector<std::vector<Cell>> heldBack_;
  std::size_t heldBytes_ = 0;
  bool isStreaming_ = false;
  std::string line_;
};

}  // namespace qvn::cli
