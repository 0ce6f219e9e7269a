#include "qvn/base/pattern/number_section.h"

#include <algorithm>

#include "qvn/base/pattern/symbol_reader.h"

namespace qvn::pattern {
namespace {

constexpr std::int64_t kPercentShift = 2;
constexpr std::int64_t kThousandShift = 3;

bool isPlace(char c) noexcept { return c == '0' || c == '#'; }

// The exponent part at the front of `text`; the offset is left to the caller.
std::optional<ExponentPart> matchExponent(std::string_view text) noexcept {
  if (text.size() < 3 || (text[0] != 'E' && text[0] != 'e') || (text[1] != '+' && text[1] != '-') ||
      !isPlace(text[2])) {
    return std::nullopt;
  }
  ExponentPart part;
  part.showsPlus = text[1] == '+';
  part.length = std::min(text.find_first_not_of("0#", 2), text.size());
  part.leastDigits = part.length - std::min(text.find('0', 2), part.length);
  return part;
}

// Collects what a section holds, in the order of its symbols.
class SectionScan {
 public:
  explicit SectionScan(std::string_view text) noexcept { section_.text = text; }

  void take(char code) noexcept {
    if (code == '%') {
      section_.shift += kPercentShift;
    } else if (section_.exponent) {
      return;
    } else if (isPlace(code)) {
      takePlace(code == '0');
    } else if (code == '.') {
      applyScaling();
      hasPoint_ = true;
    } else if (code == ',') {
      ++commas_;
    }
  }

  void takeExponent(ExponentPart part) noexcept { section_.exponent = part; }

  [[nodiscard]] bool mayHaveExponent() const noexcept { return section_.hasPlaces() && !section_.exponent; }

  NumberSection finish() noexcept {
    applyScaling();
    return section_;
  }

 private:
  void takePlace(bool isRequired) noexcept {
    if (hasPoint_) {
      ++section_.decimalPlaces;
      if (isRequired) section_.requiredDecimals = section_.decimalPlaces;
    } else {
      if (commas_ > 0 && section_.wholePlaces > 0) section_.groupsThousands = true;
      ++section_.wholePlaces;
      if (isRequired || section_.requiredWhole > 0) ++section_.requiredWhole;
    }
    commas_ = 0;
  }

  void applyScaling() noexcept {
    section_.shift -= kThousandShift * commas_;
    commas_ = 0;
  }

  NumberSection section_;
  std::int64_t commas_ = 0;  // since the last placeholder
  bool hasPoint_ = false;
};

}  // namespace

NumberSection readNumberSection(std::string_view text) noexcept {
  SectionScan scan(text);
  SymbolReader reader(text);
  while (true) {
    const std::size_t offset = reader.offset();
    if (scan.mayHaveExponent()) {
      if (auto part = matchExponent(reader.rest())) {
        part->offset = offset;
        scan.takeExponent(*part);
        reader.skip(part->length);
        continue;
      }
    }
    const auto symbol = reader.next();
    if (!symbol) return scan.finish();
    scan.take(symbol->code());
  }
}

}  // namespace qvn::pattern
