// The fields of a record line, one after the other, as views of its text.
#pragma once

#include <optional>
#include <string_view>

namespace qvn::rowtext::internal {

struct FieldPiece {
  std::string_view name;
  std::string_view rawValue;  ///< up to a second marker, if there is one
};

class FieldPieces {
 public:
  /// The text must outlive the pieces.
  explicit FieldPieces(std::string_view line) : rest_(line) {}

  /// The next piece that is not blank; nothing at the end. Throws RuntimeError 9 for a piece without marker.
  std::optional<FieldPiece> next();

 private:
  std::string_view rest_;
};

}  // namespace qvn::rowtext::internal
