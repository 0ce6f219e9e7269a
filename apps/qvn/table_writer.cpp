#include "apps/qvn/table_writer.h"

#include <algorithm>
#include <utility>

#include "apps/qvn/terminal_text.h"

namespace qvn::cli {
namespace {

// Rows that decide the widths, and the bytes that they may take together.
constexpr std::size_t kMostHeldRows = 1000;
constexpr std::size_t kMostHeldBytes = std::size_t{1024} * 1024;

constexpr std::string_view kGap = "  ";
constexpr std::string_view kRule = "─";

}  // namespace

TableWriter::TableWriter(Output& out, std::vector<std::string> titles, std::size_t indent)
    : out_(out), margin_(indent, ' ') {
  columns_.reserve(titles.size());
  for (std::string& title : titles) {
    const std::size_t width = std::max<std::size_t>(displayWidth(title), 1);
    columns_.push_back({std::move(title), width, false});
  }
}

void TableWriter::add(std::vector<Cell> row) {
  if (isStreaming_) {
    writeRow(row);
    return;
  }
  for (const Cell& cell : row) heldBytes_ += cell.text.size();
  heldBack_.push_back(std::move(row));
  if (heldBack_.size() >= kMostHeldRows || heldBytes_ >= kMostHeldBytes) writeHeldBack();
}

void TableWriter::end() {
  if (!isStreaming_) writeHeldBack();
}

void TableWriter::writeHeldBack() {
  isStreaming_ = true;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    bool hasNumber = false;
    bool hasText = false;
    for (const std::vector<Cell>& row : heldBack_) {
      columns_[i].width = std::max(columns_[i].width, displayWidth(row[i].text));
      hasNumber = hasNumber || row[i].kind == Cell::Kind::Number;
      hasText = hasText || row[i].kind == Cell::Kind::Text;
    }
    columns_[i].isNumeric = hasNumber && !hasText;
  }
  writeHeader();
  for (const std::vector<Cell>& row : heldBack_) writeRow(row);
  heldBack_ = {};
}

void TableWriter::writeHeader() {
  for (const Column& column : columns_) appendPadded(column.title, column);
  endLine();
  for (const Column& column : columns_) {
    std::string rule;
    for (std::size_t i = 0; i < column.width; ++i) rule.append(kRule);
    appendPadded(rule, column);
  }
  endLine();
}

void TableWriter::writeRow(const std::vector<Cell>& row) {
  for (std::size_t i = 0; i < columns_.size(); ++i) appendPadded(row[i].text, columns_[i]);
  endLine();
}

void TableWriter::appendPadded(std::string_view text, const Column& column) {
  const std::size_t width = displayWidth(text);
  const std::size_t blanks = column.width - std::min(width, column.width);
  line_.append(line_.empty() ? std::string_view(margin_) : kGap);
  if (column.isNumeric) line_.append(blanks, ' ');
  line_.append(text);
  if (!column.isNumeric) line_.append(blanks, ' ');
}

void TableWriter::endLine() {
  // Blanks at the end of a line would only wrap it on a narrow terminal.
  line_.erase(line_.find_last_not_of(' ') + 1);
  line_.push_back('\n');
  out_ << line_;
  line_.clear();
}

}  // namespace qvn::cli
