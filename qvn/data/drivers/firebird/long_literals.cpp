#include "qvn/data/drivers/firebird/long_literals.h"

#include <array>
#include <charconv>

namespace qvn::data::firebird {
namespace {

bool isNameCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '$';
}

constexpr std::size_t kNowhere = std::string_view::npos;

// Offset behind `mark`, looked for from `from` on.
std::size_t behind(std::string_view sql, std::string_view mark, std::size_t from) {
  const std::size_t at = sql.find(mark, from);
  return at == kNowhere ? kNowhere : at + mark.size();
}

// Offset behind what is quoted from `start` on; the quote doubled stands for itself. Nowhere when it is not closed.
std::size_t behindQuoted(std::string_view sql, std::size_t start) {
  const char quote = sql[start];
  std::size_t end = behind(sql, {&quote, 1}, start + 1);
  while (end < sql.size() && sql[end] == quote) end = behind(sql, {&quote, 1}, end + 1);
  return end;
}

// Offset behind q'{...}', whose second character tells which one ends it.
std::size_t behindAlternative(std::string_view sql, std::size_t quote) {
  static constexpr std::string_view kOpening = "([{<";
  static constexpr std::string_view kClosing = ")]}>";
  if (quote + 1 >= sql.size()) return kNowhere;
  const std::size_t pair = kOpening.find(sql[quote + 1]);
  const std::array<char, 2> ends = {pair == kNowhere ? sql[quote + 1] : kClosing[pair], '\''};
  return behind(sql, {ends.data(), ends.size()}, quote + 2);
}

std::string withoutDoubledQuotes(std::string_view inside) {
  std::string text;
  text.reserve(inside.size());
  for (std::size_t i = 0; i < inside.size(); ++i) {
    text.push_back(inside[i]);
    if (inside[i] == '\'') ++i;
  }
  return text;
}

bool isHexText(std::string_view digits) {
  return digits.size() % 2 == 0 && digits.find_first_not_of("0123456789ABCDEFabcdef") == kNowhere;
}

std::string bytesOfHex(std::string_view digits) {
  std::string bytes;
  bytes.reserve(digits.size() / 2);
  for (; !digits.empty(); digits.remove_prefix(2)) {
    unsigned char byte = 0;
    std::from_chars(digits.data(), digits.data() + 2, byte, 16);
    bytes.push_back(static_cast<char>(byte));
  }
  return bytes;
}

// The name that ends right before `at`, such as the x of x'...'.
std::string_view nameBefore(std::string_view sql, std::size_t at) {
  std::size_t start = at;
  while (start > 0 && isNameCharacter(sql[start - 1])) --start;
  return sql.substr(start, at - start);
}

// Splits the text at its long literals.
class Scan {
 public:
  explicit Scan(std::string_view sql) : sql_(sql) { result_.original = sql; }

  StatementText run() {
    while ((at_ = sql_.find_first_of("'\"-/", at_)) != kNowhere) step();
    if (!result_.literals.empty()) result_.shortened.append(sql_.substr(kept_));
    return std::move(result_);
  }

 private:
  void step() {
    if (sql_[at_] == '\'') {
      stepOverLiteral();
    } else if (sql_[at_] == '"') {
      at_ = behindQuoted(sql_, at_);
    } else if (sql_.substr(at_).starts_with("--")) {
      at_ = behind(sql_, "\n", at_);
    } else if (sql_.substr(at_).starts_with("/*")) {
      at_ = behind(sql_, "*/", at_ + 2);
    } else {
      ++at_;
    }
  }

  void stepOverLiteral() {
    const std::string_view prefix = nameBefore(sql_, at_);
    if (prefix == "q" || prefix == "Q") {
      at_ = behindAlternative(sql_, at_);
      return;
    }
    const std::size_t end = behindQuoted(sql_, at_);
    if (end != kNowhere && end - at_ > kLongestLiteral + 2) takeOut(prefix, sql_.substr(at_ + 1, end - at_ - 2), end);
    at_ = end;
  }

  void takeOut(std::string_view prefix, std::string_view inside, std::size_t end) {
    const bool isHex = prefix == "x" || prefix == "X";
    // The engine knows best what to say about the rest.
    if (isHex ? !isHexText(inside) : !prefix.empty()) return;
    result_.shortened.append(sql_.substr(kept_, at_ - prefix.size() - kept_)).push_back('?');
    result_.literals.push_back({isHex ? bytesOfHex(inside) : withoutDoubledQuotes(inside), !isHex});
    kept_ = end;
  }

  std::string_view sql_;
  std::size_t at_ = 0;
  std::size_t kept_ = 0;  // up to here the text is in the result
  StatementText result_;
};

}  // namespace

StatementText takeLongLiterals(std::string_view sql) {
  if (sql.size() <= kLongestLiteral) return {sql, {}, {}};
  return Scan(sql).run();
}

}  // namespace qvn::data::firebird
