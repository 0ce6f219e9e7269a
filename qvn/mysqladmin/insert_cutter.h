// Where a long INSERT of many rows can be cut in two.
#pragma once

#include <cstddef>
#include <string>

namespace qvn::mysqladmin {

/// Follows one statement as it is read. Rows are found by their parentheses, which the reader tells outside of quotes,
/// each before it appends the character; the text is the statement as far as it was read.
class InsertCutter {
 public:
  explicit InsertCutter(std::size_t longest) : longest_(longest) {}

  void begin();
  void open(const std::string& statement);
  void close(const std::string& statement);
  void comma();

  /// True when the statement has grown too long and ends with a row that can be taken off.
  [[nodiscard]] bool mustCut(const std::string& statement) const {
    return depth_ == 0 && cut_ > 0 && statement.size() > longest_;
  }
  /// Leaves in `statement` the rows before the last one, and returns a statement of the last one.
  std::string cut(std::string& statement);

  /// For a statement that has ended. Throws RuntimeError 5 when it was cut and a clause follows its rows.
  void requireNoClause(const std::string& statement) const;

 private:
  std::size_t longest_;
  std::size_t depth_ = 0;
  std::size_t rows_ = 0;    // where the rows begin; 0 when no INSERT of rows has been found
  std::size_t cut_ = 0;     // behind the last row that another one follows
  std::size_t rowEnd_ = 0;  // behind the last row
  bool wasCut_ = false;
};

}  // namespace qvn::mysqladmin
