#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

#include "qvn/base/letter_case.h"
#include "qvn/mysqladmin/insert_cutter.h"
#include "qvn/mysqladmin/statement_reader.h"

namespace qvn::mysqladmin {
namespace {

constexpr std::size_t kBlockBytes = std::size_t{64} * 1024;
constexpr std::string_view kBlanks = " \t\r\n";

// Bytes of a source with as many of them in sight as are asked for.
class Window {
 public:
  explicit Window(DumpSource& source) : source_(source), block_(kBlockBytes) {}

  /// What is in sight, at least `count` bytes unless the source ends before.
  std::string_view peek(std::size_t count) {
    while (left_.size() < count && !isAtEnd_) {
      // What the callers look for is short: a delimiter, a word.
      if (!left_.empty()) std::memmove(block_.data(), left_.data(), left_.size());
      const std::size_t read = source_.read(std::span(block_).subspan(left_.size()));
      left_ = {block_.data(), left_.size() + read};
      isAtEnd_ = read == 0;
    }
    return left_;
  }

  std::string_view take(std::size_t count) {
    const std::string_view taken = left_.substr(0, count);
    left_.remove_prefix(count);
    lines_ += std::ranges::count(taken, '\n');
    return taken;
  }

  [[nodiscard]] std::int64_t line() const { return lines_ + 1; }

 private:
  DumpSource& source_;
  std::vector<char> block_;
  std::string_view left_;
  bool isAtEnd_ = false;
  std::int64_t lines_ = 0;
};

class GrammarStatements final : public StatementReader {
 public:
  GrammarStatements(DumpSource& source, std::size_t longestInsert) : window_(source), cutter_(longestInsert) {
    setDelimiter(";");
  }

  bool next(std::string& statement) override {
    statement = std::exchange(rest_, {});
    if (statement.empty()) cutter_.begin();
    while (!window_.peek(1).empty()) {
      if (statement.empty() && skipToStatement()) continue;
      if (readPiece(statement)) return true;
    }
    trim(statement);
    unfinished_ = std::exchange(statement, {});
    return false;
  }

  [[nodiscard]] const std::string& unfinished() const override { return unfinished_; }
  [[nodiscard]] std::int64_t line() const override { return begun_; }

 private:
  void setDelimiter(std::string_view delimiter) {
    delimiter_ = delimiter;
    isSpecial_.fill(false);
    for (const char c : std::string_view("'\"`#-/(),")) isSpecial_[static_cast<unsigned char>(c)] = true;
    isSpecial_[static_cast<unsigned char>(delimiter_.front())] = true;
  }

  static void trim(std::string& statement) { statement.resize(statement.find_last_not_of(kBlanks) + 1); }

  // Before a statement's first character. True when something was skipped.
  bool skipToStatement() {
    begun_ = window_.line();
    const std::string_view seen = window_.peek(kDelimiterWord.size() + 1);
    const std::size_t blanks = std::min(seen.find_first_not_of(kBlanks), seen.size());
    if (blanks > 0) {
      window_.take(blanks);
      return true;
    }
    const bool isCommand = seen.size() > kDelimiterWord.size() && kBlanks.find(seen[kDelimiterWord.size()]) < 2 &&
                           equalIgnoringCase(seen.substr(0, kDelimiterWord.size()), kDelimiterWord);
    if (!isCommand) return false;
    window_.take(kDelimiterWord.size());
    std::string delimiter;
    passLine(&delimiter);
    const std::size_t first = delimiter.find_first_not_of(kBlanks);
    trim(delimiter);
    if (!delimiter.empty()) setDelimiter(std::string_view(delimiter).substr(first));
    return true;
  }

  // Up to the next character with a meaning, and it. True when the statement is complete.
  bool readPiece(std::string& statement) {
    const std::string_view seen = window_.peek(1);
    const auto isMeant = [this](char c) { return isSpecial_[static_cast<unsigned char>(c)]; };
    const auto plain = static_cast<std::size_t>(std::ranges::find_if(seen, isMeant) - seen.begin());
    if (plain > 0) {
      statement.append(window_.take(plain));
      return false;
    }
    if (window_.peek(delimiter_.size()).starts_with(delimiter_)) return endStatement(statement);
    return readSpecial(statement);
  }

  bool endStatement(std::string& statement) {
    window_.take(delimiter_.size());
    trim(statement);
    cutter_.requireNoClause(statement);
    if (statement.empty()) cutter_.begin();
    return !statement.empty();
  }

  bool readSpecial(std::string& statement) {
    const std::string_view seen = window_.peek(4);
    switch (seen.front()) {
      case '\'':
      case '"':
      case '`':
        passQuoted(statement);
        return false;
      case '#':
        passLine(nullptr);
        return false;
      case '-':
        if (!startsLineComment(seen)) break;
        passLine(nullptr);
        return false;
      case '/':
        // Servers execute the text of the comments /*! and /*M!.
        if (!seen.starts_with("/*") || seen.starts_with("/*!") || seen.starts_with("/*M!")) break;
        passComment();
        if (!statement.empty()) statement.push_back(' ');
        return false;
      case '(':
        cutter_.open(statement);
        break;
      case ')':
        cutter_.close(statement);
        break;
      case ',':
        cutter_.comma();
        break;
      default:
        break;
    }
    statement.append(window_.take(1));
    if (!cutter_.mustCut(statement)) return false;
    rest_ = cutter_.cut(statement);
    return true;
  }

  static bool startsLineComment(std::string_view seen) {
    return seen.starts_with("--") && (seen.size() == 2 || static_cast<unsigned char>(seen[2]) <= ' ');
  }

  void passLine(std::string* text) {
    for (bool isEnded = false; !isEnded && !window_.peek(1).empty();) {
      const std::string_view seen = window_.peek(1);
      const std::size_t end = seen.find('\n');
      isEnded = end != std::string_view::npos;
      const std::string_view taken = window_.take(isEnded ? end + 1 : seen.size());
      if (text != nullptr) text->append(taken);
    }
  }

  void passComment() {
    window_.take(2);
    while (true) {
      const std::string_view seen = window_.peek(2);
      if (seen.size() < 2) {
        window_.take(seen.size());
        return;
      }
      const std::size_t end = seen.find("*/");
      // The last byte may be the first half of the end.
      window_.take(end == std::string_view::npos ? seen.size() - 1 : end + 2);
      if (end != std::string_view::npos) return;
    }
  }

  // A quote inside, doubled, ends one text and begins the next, which comes to the same.
  void passQuoted(std::string& statement) {
    const char quote = window_.peek(1).front();
    const char escape = quote == '`' ? quote : '\\';
    statement.append(window_.take(1));
    while (!window_.peek(1).empty()) {
      const std::string_view seen = window_.peek(1);
      const auto found = std::ranges::find_if(seen, [=](char c) { return c == quote || c == escape; });
      if (found != seen.begin()) {
        statement.append(window_.take(static_cast<std::size_t>(found - seen.begin())));
      } else if (seen.front() == quote) {
        statement.append(window_.take(1));
        return;
      } else {
        statement.append(window_.take(window_.peek(2).size() < 2 ? 1 : 2));
      }
    }
  }

  static constexpr std::string_view kDelimiterWord = "DELIMITER";

  Window window_;
  InsertCutter cutter_;
  std::string delimiter_;
  std::array<bool, 256> isSpecial_{};
  std::string rest_;
  std::string unfinished_;
  std::int64_t begun_ = 0;
};

}  // namespace

std::unique_ptr<StatementReader> readByGrammar(DumpSource& source, std::size_t longestInsert) {
  return std::make_unique<GrammarStatements>(source, longestInsert);
}

}  // namespace qvn::mysqladmin
