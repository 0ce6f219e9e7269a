// Reads a pattern symbol by symbol, taking quotes and escapes apart.
//
//   dd "de" \m  ->  unquoted d, d, blank; literal de; unquoted blank; literal m
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace qvn::pattern {

struct Symbol {
  std::string_view text;   ///< what it prints when it has no meaning: quoted text, or one byte
  bool isLiteral = false;  ///< quoted or escaped, so that it never has a meaning

  /// The unquoted byte, or NUL for a literal.
  [[nodiscard]] char code() const noexcept { return isLiteral ? '\0' : text.front(); }
};

/// A quote that is not closed runs to the end of the pattern; a backslash that ends the pattern stands for itself.
class SymbolReader {
 public:
  explicit SymbolReader(std::string_view pattern) noexcept : pattern_(pattern) {}

  /// The next symbol; nothing at the end. An unquoted symbol is one byte, so bytes that are not UTF-8 pass through.
  std::optional<Symbol> next() noexcept;

  /// Bytes read so far.
  [[nodiscard]] std::size_t offset() const noexcept { return offset_; }
  /// What has not been read.
  [[nodiscard]] std::string_view rest() const noexcept { return pattern_.substr(offset_); }
  /// Passes over `count` bytes of rest().
  void skip(std::size_t count) noexcept { offset_ += count; }

 private:
  std::string_view pattern_;
  std::size_t offset_ = 0;
};

}  // namespace qvn::pattern
