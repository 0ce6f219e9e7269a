// Formats that have a name: "Standard", "Short Date", "Yes/No", ...
#pragma once

#include <string_view>

namespace qvn::pattern {

enum class NamedFormatKind {
  Pattern,        ///< short for a pattern
  GeneralNumber,  ///< a number's general text
  Currency,       ///< an amount of money
  Choice,         ///< one word for zero and another for every other number
};

/// The words of a choice in one language.
struct ChoiceWords {
  std::string_view nonZero;
  std::string_view zero;
};

struct NamedFormat {
  std::string_view name;
  NamedFormatKind kind;
  std::string_view pattern;  ///< of kind Pattern
  ChoiceWords english;       ///< of kind Choice
  ChoiceWords spanish;
};

/// The format named `name` in any case; null when `name` is an ordinary pattern.
const NamedFormat* findNamedFormat(std::string_view name) noexcept;

}  // namespace qvn::pattern
