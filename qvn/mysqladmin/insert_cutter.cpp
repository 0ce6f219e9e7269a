#include "qvn/mysqladmin/insert_cutter.h"

#include <string_view>

#include "qvn/base/letter_case.h"
#include "qvn/base/runtime_error.h"

namespace qvn::mysqladmin {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool startsWithWord(std::string_view text, std::string_view word) {
  return text.size() > word.size() && equalIgnoringCase(text.substr(0, word.size()), word);
}

bool endsWithWord(std::string_view text, std::string_view word) {
  if (text.size() <= word.size()) return false;
  const char before = text[text.size() - word.size() - 1];
  const bool isWord = before == ')' || before == '`' || kBlanks.find(before) != std::string_view::npos;
  return isWord && equalIgnoringCase(text.substr(text.size() - word.size()), word);
}

// True when the rows of an INSERT begin behind `text`.
bool endsBeforeRows(std::string_view text) {
  if (!startsWithWord(text, "INSERT") && !startsWithWord(text, "REPLACE")) return false;
  text = text.substr(0, text.find_last_not_of(kBlanks) + 1);
  return endsWithWord(text, "VALUES") || endsWithWord(text, "VALUE");
}

}  // namespace

void InsertCutter::begin() {
  depth_ = rows_ = cut_ = rowEnd_ = 0;
  wasCut_ = false;
}

void InsertCutter::open(const std::string& statement) {
  if (depth_++ == 0 && rows_ == 0 && endsBeforeRows(statement)) rows_ = statement.size();
}

void InsertCutter::close(const std::string& statement) {
  if (depth_ > 0 && --depth_ == 0 && rows_ > 0) rowEnd_ = statement.size() + 1;
}

void InsertCutter::comma() {
  if (depth_ == 0) cut_ = rowEnd_;
}

std::string InsertCutter::cut(std::string& statement) {
  std::string last(statement, 0, rows_);
  const std::size_t row = statement.find_first_not_of(kBlanks, statement.find(',', cut_) + 1);
  if (row != std::string::npos) last.append(statement, row);
  statement.resize(cut_);
  rowEnd_ = last.size();
  cut_ = 0;
  wasCut_ = true;
  return last;
}

void InsertCutter::requireNoClause(const std::string& statement) const {
  if (!wasCut_ || statement.find_first_not_of(kBlanks, rowEnd_) == std::string::npos) return;
  throw RuntimeError(error_number::kInvalidCall,
                     "Un INSERT más largo de lo que acepta el servidor no se puede partir, porque algo sigue a sus "
                     "renglones; aumente max_allowed_packet en el servidor");
}

}  // namespace qvn::mysqladmin
