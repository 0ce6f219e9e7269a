#include "qvn/text/internal/repeated_replacement.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

#include "qvn/base/letter_case.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/text/internal/stray_bytes.h"
#include "qvn/text/internal/text_space.h"

namespace qvn::text::internal {
namespace {

// Reads a text byte by byte and knows how much of the searched text its end matches. Source: D. Knuth, J. Morris and
// V. Pratt, "Fast pattern matching in strings", SIAM Journal on Computing 6 (1977).
class Matcher {
 public:
  explicit Matcher(std::string_view searched) : searched_(searched), border_(searched.size() + 1, 0) {
    for (std::size_t i = 1; i < searched_.size(); ++i) border_[i + 1] = next(border_[i], searched_[i]);
  }

  [[nodiscard]] std::size_t size() const { return searched_.size(); }

  // Reads on from `from`, to the end of the first match or of the text; returns the offset reached.
  [[nodiscard]] std::size_t read(std::string_view text, std::size_t from, std::size_t& matched) const {
    while (from < text.size() && matched < size()) {
      if (matched == 0) {
        from = text.find(searched_.front(), from);
        if (from == std::string_view::npos) return text.size();
      }
      matched = next(matched, text[from++]);
    }
    return from;
  }

  // How much is matched after a text that holds no match.
  [[nodiscard]] std::size_t matchedAtEnd(std::string_view text) const {
    std::size_t matched = 0;
    static_cast<void>(read(text, text.size() - std::min(text.size(), size() - 1), matched));
    return matched;
  }

 private:
  [[nodiscard]] std::size_t next(std::size_t matched, char byte) const {
    while (matched > 0 && searched_[matched] != byte) matched = border_[matched];
    return searched_[matched] == byte ? matched + 1 : 0;
  }

  std::string_view searched_;
  std::vector<std::size_t> border_;  // by matched length: the longest proper prefix that is also its suffix
};

// A text with its upper-cased form, which has the same length.
struct FoldedText {
  explicit FoldedText(std::string_view text) : original(text), upper(upperCase(text)) {}

  std::string_view original;
  std::string upper;
};

// The result so far holds no occurrence, so the first one in all ends where the matcher, reading on, first finds one.
// The inserted text takes its place in what is still to be read.
class Rewriter {
 public:
  Rewriter(std::string_view inserted, std::string_view searched, std::string_view target, std::size_t growthLimit)
      : searched_(upperCase(searched)), matcher_(searched_), inserted_(inserted), target_(target) {
    if (inserted.size() > searched.size()) {
      mostReplacements_ = target.size() / searched.size() + growthLimit / inserted.size();
    }
    result_.reserve(target.size());
    upperResult_.reserve(target.size());
  }

  std::string run() {
    unread_.push_back({&target_, 0});
    while (!unread_.empty()) {
      Unread& next = unread_.back();
      const std::size_t end = matcher_.read(next.text->upper, next.from, matched_);
      append(*next.text, next.from, end - next.from);
      next.from = end;
      if (end == next.text->upper.size()) unread_.pop_back();
      if (matched_ == matcher_.size()) replaceMatch();
    }
    return std::move(result_);
  }

 private:
  struct Unread {
    const FoldedText* text;
    std::size_t from;
  };

  void append(const FoldedText& text, std::size_t from, std::size_t count) {
    requireTextSpace(result_.size() + count);
    result_.append(text.original, from, count);
    upperResult_.append(text.upper, from, count);
  }

  void replaceMatch() {
    if (replacements_++ >= mostReplacements_) {
      throw RuntimeError(error_number::kInvalidCall,
                         "El texto que se inserta forma sin fin nuevas apariciones del texto buscado");
    }
    result_.resize(result_.size() - matcher_.size());
    upperResult_.resize(result_.size());
    matched_ = matcher_.matchedAtEnd(upperResult_);
    if (!inserted_.upper.empty()) unread_.push_back({&inserted_, 0});
  }

  std::string searched_;
  Matcher matcher_;
  FoldedText inserted_;
  FoldedText target_;
  std::string result_;
  std::string upperResult_;
  std::vector<Unread> unread_;  // what follows the result, the nearest text last
  std::size_t matched_ = 0;
  std::size_t replacements_ = 0;
  // An inserted text that is no longer than the searched one always comes to an end.
  std::size_t mostReplacements_ = std::numeric_limits<std::size_t>::max();
};

}  // namespace

std::string replaceUntilGone(std::string_view inserted, std::string_view searched, std::string_view target,
                             std::size_t growthLimit) {
  if (utf8::isValid(searched)) return Rewriter(inserted, searched, target, growthLimit).run();
  const std::string spelledInserted = spellStrayBytes(inserted);
  const std::string spelledSearched = spellStrayBytes(searched);
  const std::string spelledTarget = spellStrayBytes(target);
  return restoreStrayBytes(Rewriter(spelledInserted, spelledSearched, spelledTarget, growthLimit).run());
}

}  // namespace qvn::text::internal
