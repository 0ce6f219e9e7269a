// Rows kept in memory while their connection is needed for another statement.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace qvn::data::mysql {

/// One row in the engine's text form; a value whose data() is null is NULL.
using RowTexts = std::vector<std::string_view>;

/// A queue of rows of equal width. A value takes its bytes and one or a few more for its length; memory is given back
/// as rows are read.
class UnreadRows {
 public:
  void append(const RowTexts& row);

  /// Takes the next row: `row`, which has as many entries as every row, then points into this object until the next
  /// call. False when there is none.
  bool next(RowTexts& row);

 private:
  std::deque<std::string> blocks_;  // each holds whole rows
  std::size_t offset_ = 0;          // of the next row in the first block
};

}  // namespace qvn::data::mysql
