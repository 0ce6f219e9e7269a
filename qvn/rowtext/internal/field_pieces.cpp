#include "qvn/rowtext/internal/field_pieces.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

#include "qvn/base/eight_bytes.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/rowtext/internal/marks.h"

namespace qvn::rowtext::internal {
namespace {

// As starts_with of what comes from `at` on, for a mark whose size the compiler knows.
template <const std::string_view& kMark>
bool isAt(std::string_view text, std::size_t at) {
  return text.size() - at >= kMark.size() && std::memcmp(text.data() + at, kMark.data(), kMark.size()) == 0;
}

struct Marks {
  std::size_t terminator;                         // the end of the text when there is none
  std::size_t nameEnd = std::string_view::npos;   // at the first marker before the terminator
  std::size_t valueEnd = std::string_view::npos;  // at the second one
};

Marks findMarks(std::string_view text) {
  Marks marks{text.size()};
  for (std::size_t start = 0; start < text.size(); start += eight_bytes::kSize) {
    const std::uint64_t word = eight_bytes::load(text, start);
    std::uint64_t candidates =
        eight_bytes::equalTo(word, kTerminator.front()) | eight_bytes::equalTo(word, kMarker.front());
    for (; candidates != 0; candidates &= candidates - 1) {
      const std::size_t at = start + eight_bytes::firstOf(candidates);
      if (isAt<kTerminator>(text, at)) {
        marks.terminator = at;
        return marks;
      }
      if (isAt<kMarker>(text, at)) {
        if (marks.nameEnd == std::string_view::npos) {
          marks.nameEnd = at;
        } else if (marks.valueEnd == std::string_view::npos) {
          marks.valueEnd = at;
        }
      }
    }
  }
  return marks;
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
    const Marks marks = findMarks(rest_);
    const std::string_view piece = rest_.substr(0, marks.terminator);
    rest_.remove_prefix(std::min(rest_.size(), piece.size() + kTerminator.size()));
    if (marks.nameEnd != std::string_view::npos) {
      const std::size_t value = marks.nameEnd + kMarker.size();
      return FieldPiece{piece.substr(0, marks.nameEnd), piece.substr(value, marks.valueEnd - value)};
    }
    if (piece.find_first_not_of(' ') != std::string_view::npos) refuseUnmarked(piece);
  }
  return std::nullopt;
}

}  // namespace qvn::rowtext::internal
