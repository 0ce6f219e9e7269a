#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "qvn/mysqladmin/statement_reader.h"

namespace qvn::mysqladmin {
namespace {

constexpr std::size_t kBlockBytes = std::size_t{64} * 1024;

// Lines of a source, of any length.
class LineReader {
 public:
  explicit LineReader(DumpSource& source) : source_(source), block_(kBlockBytes) {}

  // Appends the next line without its end; false when there is none.
  bool append(std::string& text) {
    const std::size_t start = text.size();
    for (bool isBegun = false;; isBegun = true) {
      if (left_.empty() && !fill()) return isBegun;
      const std::size_t end = std::min(left_.find('\n'), left_.size());
      text.append(left_.substr(0, end));
      const bool isWhole = end < left_.size();
      left_.remove_prefix(isWhole ? end + 1 : end);
      if (!isWhole) continue;
      if (text.size() > start && text.back() == '\r') text.pop_back();
      return true;
    }
  }

 private:
  bool fill() {
    left_ = {block_.data(), source_.read(block_)};
    return !left_.empty();
  }

  DumpSource& source_;
  std::vector<char> block_;
  std::string_view left_;
};

class LineStatements final : public StatementReader {
 public:
  explicit LineStatements(DumpSource& source) : lines_(source) {}

  bool next(std::string& statement) override {
    do {
      statement.clear();
      if (!appendTrimmed(statement)) return false;
    } while (isSkipped(statement));
    begun_ = line_;
    while (!statement.ends_with(';')) {
      if (appendTrimmed(statement)) continue;
      unfinished_ = std::move(statement);
      return false;
    }
    return true;
  }

  [[nodiscard]] const std::string& unfinished() const override { return unfinished_; }
  [[nodiscard]] std::int64_t line() const override { return begun_; }

 private:
  bool appendTrimmed(std::string& statement) {
    const std::size_t start = statement.size();
    if (!lines_.append(statement)) return false;
    ++line_;
    const std::size_t last = statement.find_last_not_of(' ');
    statement.resize(last == std::string::npos ? start : std::max(start, last + 1));
    statement.erase(start, std::min(statement.find_first_not_of(' ', start), statement.size()) - start);
    return true;
  }

  static bool isSkipped(std::string_view line) {
    return line.empty() || line.starts_with('#') || (line.starts_with("/*") && line.ends_with("*/"));
  }

  LineReader lines_;
  std::int64_t line_ = 0;
  std::int64_t begun_ = 0;
  std::string unfinished_;
};

}  // namespace

std::unique_ptr<StatementReader> readByLines(DumpSource& source) { return std::make_unique<LineStatements>(source); }

}  // namespace qvn::mysqladmin
