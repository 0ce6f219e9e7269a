#include "qvn/base/pattern/number_layout.h"

#include <cstdlib>
#include <utility>

#include "qvn/base/pattern/symbol_reader.h"
#include "qvn/base/regional.h"

namespace qvn::pattern {
namespace {

constexpr std::size_t kGroupSize = 3;

// Writes one section; called with its symbols in order.
class SectionWriter {
 public:
  SectionWriter(const NumberSection& section, FittedNumber number, std::string& text)
      : section_(section), number_(std::move(number)), text_(text) {
    std::string& whole = number_.digits.whole;
    if (whole.size() < section.requiredWhole) whole.insert(0, section.requiredWhole - whole.size(), '0');
    std::string& decimals = number_.digits.decimals;
    while (decimals.size() > section.requiredDecimals && decimals.back() == '0') decimals.pop_back();
    if (section.groupsThousands) groupSeparator_ = numberSeparators().thousandsSeparator;
  }

  void write(const Symbol& symbol) {
    const char code = section_.hasPlaces() && !hasExponent_ ? symbol.code() : '\0';
    if (code == '0' || code == '#') {
      writePlace();
    } else if (code == '.' && !hasPoint_) {
      writePoint();
    } else if (code != ',') {
      text_.append(symbol.text);
    }
  }

  void writeExponent() {
    const ExponentPart& part = *section_.exponent;
    text_.push_back(section_.text[part.offset]);
    if (number_.exponent < 0) {
      text_.push_back('-');
    } else if (part.showsPlus) {
      text_.push_back('+');
    }
    const std::string digits = std::to_string(std::abs(number_.exponent));
    if (digits.size() < part.leastDigits) text_.append(part.leastDigits - digits.size(), '0');
    text_.append(digits);
    hasExponent_ = true;
  }

 private:
  void writePlace() {
    if (hasPoint_) {
      const std::string& decimals = number_.digits.decimals;
      if (decimalPlace_ < decimals.size()) text_.push_back(decimals[decimalPlace_]);
      ++decimalPlace_;
    } else {
      ++wholePlace_;
      writeWholeDigits(section_.wholePlaces - wholePlace_);
    }
  }

  void writePoint() {
    if (section_.wholePlaces == 0) writeWholeDigits(0);
    text_.append(decimalSeparator());
    hasPoint_ = true;
  }

  // Writes the integer digits up to where `kept` of them, one for each later placeholder, remain.
  void writeWholeDigits(std::size_t kept) {
    const std::string& whole = number_.digits.whole;
    while (writtenDigits_ + kept < whole.size()) {
      text_.push_back(whole[writtenDigits_++]);
      const std::size_t remaining = whole.size() - writtenDigits_;
      if (remaining > 0 && remaining % kGroupSize == 0) text_.append(groupSeparator_);
    }
  }

  const NumberSection& section_;
  FittedNumber number_;
  std::string& text_;
  std::string groupSeparator_;
  std::size_t wholePlace_ = 0;
  std::size_t decimalPlace_ = 0;
  std::size_t writtenDigits_ = 0;
  bool hasPoint_ = false;
  bool hasExponent_ = false;
};

}  // namespace

bool FittedNumber::isZero() const noexcept {
  return digits.whole.empty() && digits.decimals.find_first_not_of('0') == std::string::npos;
}

FittedNumber fitPlain(const SignificantDigits& number, const NumberSection& section) {
  FittedNumber fitted{shifted(number, section.shift)};
  roundDecimals(fitted.digits, section.decimalPlaces);
  return fitted;
}

void writeNumber(const NumberSection& section, FittedNumber number, std::string& text) {
  SectionWriter writer(section, std::move(number), text);
  SymbolReader reader(section.text);
  while (true) {
    if (section.exponent && reader.offset() == section.exponent->offset) {
      writer.writeExponent();
      reader.skip(section.exponent->length);
      continue;
    }
    const auto symbol = reader.next();
    if (!symbol) return;
    writer.write(*symbol);
  }
}

}  // namespace qvn::pattern
