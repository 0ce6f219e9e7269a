// Tables of values, patterns and what must come out.
#pragma once

#include <gtest/gtest.h>

#include <string_view>
#include <utility>
#include <vector>

#include "qvn/base/format_pattern.h"
#include "tests/support/locale_guard.h"

namespace qvn::test {

struct PatternRow {
  Variant value;
  std::string_view pattern, expected;
};

using PatternRows = std::vector<PatternRow>;
using PatternPairs = std::vector<std::pair<std::string_view, std::string_view>>;  // pattern, what must come out

/// Formats every row under one locale.
inline void expectFormatted(const char* locale, const PatternRows& rows) {
  const LocaleGuard guard(locale);
  for (const PatternRow& row : rows) EXPECT_EQ(formatValue(row.value, row.pattern), row.expected) << row.pattern;
}

/// Formats one value by every pattern.
inline void expectFormatted(const char* locale, const Variant& value, const PatternPairs& pairs) {
  const LocaleGuard guard(locale);
  for (const auto& pair : pairs) EXPECT_EQ(formatValue(value, pair.first), pair.second) << pair.first;
}

}  // namespace qvn::test
