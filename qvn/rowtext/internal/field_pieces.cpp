#include "qvn/rowtext/internal/field_pieces.h"

#include <string>

#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/rowtext/internal/marks.h"

namespace qvn::rowtext::internal {
namespace {

// What stands before `mark`, which is taken off as well; everything when there is none.
std::string_view takeUpTo(std::string_view mark, std::string_view& text) {
  const std::string_view taken = text.substr(0, text.find(mark));
  text.remove_prefix(taken.size() == text.size() ? taken.size() : taken.size() + mark.size());
  return taken;
}

[[noreturn]] void refuseUnmarked(std::string_view piece) {
  constexpr std::size_t kShownCharacters = 40;
  throw RuntimeError(error_number::kSubscriptOutOfRange,
                     "falta la marca " + std::string(kMarker) + " entre nombre y valor en «" +
                         std::string(utf8::left(piece, kShownCharacters)) + "»",
                     "WsFields");
}

}  // namespace

std::optional<FieldPiece> FieldPieces::next() {
  while (!rest_.empty()) {
    std::string_view piece = takeUpTo(kTerminator, rest_);
    if (utf8::trimBlanks(piece).empty()) continue;
    const std::size_t mark = piece.find(kMarker);
    if (mark == std::string_view::npos) refuseUnmarked(piece);
    const std::string_view name = piece.substr(0, mark);
    piece.remove_prefix(mark + kMarker.size());
    return FieldPiece{name, takeUpTo(kMarker, piece)};
  }
  return std::nullopt;
}

}  // namespace qvn::rowtext::internal
