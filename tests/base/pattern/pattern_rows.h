// Tables of values, patterns and what must come out.
#pragma once

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include "qvn/base/format_pattern.h"
#include "tests/support/locale_guard.h"

namespace qvn::test {

struct PatternRow {
  const char* why;
  Variant value;
  std::string_view pattern;
  std::string_view expected;
};

/// Formats every row under one locale.
inline void expectFormatted(const char* locale, const std::vector<PatternRow>& rows) {
  const LocaleGuard guard(locale);
  for (const PatternRow& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(formatValue(row.value, row.pattern), row.expected) << '"' << row.pattern << '"';
  }
}

}  // namespace qvn::test
