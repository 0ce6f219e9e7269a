#include "qvn/rowtext/internal/field_pieces.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>

#include "qvn/base/eight_bytes.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/rowtext/internal/marks.h"

namespace qvn::rowtext::internal {
namespace {

// Where, from `at` on, a byte stands with which a mark may begin; the end of the text when there is none.
std::size_t findMarkByte(std::string_view text, std::size_t at) {
  for (; at < text.size(); at += eight_bytes::kSize) {
    const std::uint64_t word = eight_bytes::load(text, at);
    const std::uint64_t found =
        eight_bytes::equalTo(word, kTerminator.front()) | eight_bytes::equalTo(word, kMarker.front());
    if (found != 0) return at + eight_bytes::firstOf(found);
  }
  return text.size();
}

// As starts_with of what comes from `at` on, for a mark whose size the compiler knows.
template <const std::string_view& kMark>
bool isAt(std::string_view text, std::size_t at) {
  return text.size() - at >= kMark.size() && std::memcmp(text.data() + at, kMark.data(), kMark.size()) == 0;
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
    std::array<std::size_t, 2> markers{std::string_view::npos, std::string_view::npos};
    std::size_t found = 0;
    std::size_t end = 0;
    for (; (end = findMarkByte(rest_, end)) < rest_.size(); ++end) {
      if (isAt<kTerminator>(rest_, end)) break;
      if (found < markers.size() && isAt<kMarker>(rest_, end)) markers[found++] = end;
    }
    const std::string_view piece = rest_.substr(0, end);
    rest_.remove_prefix(std::min(rest_.size(), end + kTerminator.size()));
    if (found > 0) {
      const std::size_t value = markers[0] + kMarker.size();
      return FieldPiece{piece.substr(0, markers[0]), piece.substr(value, markers[1] - value)};
    }
    if (piece.find_first_not_of(' ') != std::string_view::npos) refuseUnmarked(piece);
  }
  return std::nullopt;
}

}  // namespace qvn::rowtext::internal
