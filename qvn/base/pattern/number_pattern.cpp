#include "qvn/base/pattern/number_pattern.h"

#include <algorithm>
#include <utility>

#include "qvn/base/pattern/number_layout.h"
#include "qvn/base/pattern/number_section.h"
#include "qvn/base/pattern/scientific_layout.h"
#include "qvn/base/regional.h"

namespace qvn::pattern {
namespace {

std::size_t sectionFor(const SignificantDigits& number, const Sections& sections) {
  const std::size_t own = number.digits.empty() ? kZeroSection
                          : number.isNegative   ? kNegativeSection
                                                : kPositiveSection;
  return sections[own].empty() ? kPositiveSection : own;
}

}  // namespace

std::string layoutNumber(const SignificantDigits& number, const Sections& sections) {
  const std::size_t index = sectionFor(number, sections);
  if (sections[index].empty()) return {};
  const NumberSection section = readNumberSection(sections[index]);
  FittedNumber fitted = section.exponent ? fitScientific(number, section) : fitPlain(number, section);
  const bool isZero = number.digits.empty();
  if (!isZero && section.hasPlaces() && fitted.isZero()) return layoutNumber({}, sections);
  std::string text(number.isNegative && index == kPositiveSection ? "-" : "");
  writeNumber(section, std::move(fitted), text);
  return text;
}

std::string layoutCurrency(const SignificantDigits& number) {
  const CurrencyStyle style = currencyStyle();
  const auto decimals = static_cast<std::size_t>(std::max(style.decimals, 0));
  const std::string pattern = decimals == 0 ? "#,##0" : "#,##0." + std::string(decimals, '0');
  const std::string blank = style.spaceBetween && !style.symbol.empty() ? " " : "";
  const std::string before = style.symbolPrecedes ? style.symbol + blank : "";
  const std::string behind = style.symbolPrecedes ? "" : blank + style.symbol;
  const NumberSection section = readNumberSection(pattern);
  FittedNumber fitted = fitPlain(number, section);
  const bool hasParentheses = number.isNegative && !fitted.isZero();
  std::string text = (hasParentheses ? "(" : "") + before;
  writeNumber(section, std::move(fitted), text);
  return text + behind + (hasParentheses ? ")" : "");
}

}  // namespace qvn::pattern
