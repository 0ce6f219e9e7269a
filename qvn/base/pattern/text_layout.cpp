#include "qvn/base/pattern/text_layout.h"

#include <algorithm>
#include <cstddef>

#include "qvn/base/letter_case.h"
#include "qvn/base/pattern/symbol_reader.h"
#include "qvn/base/utf8.h"

namespace qvn::pattern {
namespace {

enum class LetterCase { AsIs, Lower, Upper };

// What a section asks of the whole text.
struct TextSection {
  std::size_t places = 0;
  bool fillsFromLeft = false;
  LetterCase letterCase = LetterCase::AsIs;
};

TextSection readTextSection(std::string_view text) {
  TextSection section;
  SymbolReader reader(text);
  while (const auto symbol = reader.next()) {
    switch (symbol->code()) {
      case '@':
      case '&':
        ++section.places;
        break;
      case '!':
        section.fillsFromLeft = true;
        break;
      case '<':
        section.letterCase = LetterCase::Lower;
        break;
      case '>':
        section.letterCase = LetterCase::Upper;
        break;
      default:
        break;
    }
  }
  return section;
}

std::string inCase(std::string_view text, LetterCase letterCase) {
  switch (letterCase) {
    case LetterCase::AsIs:
      return std::string(text);
    case LetterCase::Lower:
      return lowerCase(text);
    case LetterCase::Upper:
      return upperCase(text);
  }
  return {};
}

// Hands the characters of a text out to places, in order.
class TextFeed {
 public:
  TextFeed(std::string_view text, const TextSection& section)
      : rest_(text), characters_(utf8::length(text)), places_(section.places), fillsFromLeft_(section.fillsFromLeft) {}

  // The characters for the next place; none when it stays vacant.
  std::string_view takeForPlace() {
    --places_;
    const bool isLast = places_ == 0;
    if (fillsFromLeft_) return take(isLast ? characters_ : std::min<std::size_t>(characters_, 1));
    return take(characters_ > places_ ? characters_ - places_ : 0);
  }

  std::string_view takeRest() { return take(characters_); }

 private:
  std::string_view take(std::size_t count) {
    const std::string_view taken = utf8::left(rest_, count);
    rest_.remove_prefix(taken.size());
    characters_ -= count;
    return taken;
  }

  std::string_view rest_;
  std::size_t characters_;  // in rest_
  std::size_t places_;      // not served yet
  bool fillsFromLeft_;
};

}  // namespace

std::string layoutText(std::string_view text, std::string_view section) {
  const TextSection wanted = readTextSection(section);
  const std::string source = inCase(text, wanted.letterCase);
  TextFeed feed(source, wanted);
  std::string result;
  SymbolReader reader(section);
  while (const auto symbol = reader.next()) {
    const char code = symbol->code();
    if (code == '@' || code == '&') {
      const std::string_view characters = feed.takeForPlace();
      result.append(characters.empty() && code == '@' ? std::string_view(" ") : characters);
    } else if (code != '!' && code != '<' && code != '>') {
      result.append(symbol->text);
    }
  }
  return result.append(feed.takeRest());
}

}  // namespace qvn::pattern
