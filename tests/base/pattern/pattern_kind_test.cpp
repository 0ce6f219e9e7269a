#include "tests/base/pattern/pattern_rows.h"

namespace qvn {
namespace {

using test::expectFormatted;

// Outside quotes and escapes, in any section; ".", ",", "%" and the placeholders of text decide nothing.
TEST(PatternKind, IsDecidedByTheFirstPlaceOrCode) {
  const Variant day = Date::fromCivil(2012, 3, 7);  // day 40975
  // clang-format off
  const test::PatternRows rows = {
      {40975.5, "dd/mm/yyyy hh:nn", "07/03/2012 12:00"}, {day, "#,##0.0", "40,975.0"}, {5, "0 d", "5 d"},
      {day, "d 0", "7 0"}, {5, "\\d 0", "d 5"}, {day, "\"0\" d", "0 7"}, {day, ".,%d", ".,%7"}, {5, "@0", "50"},
      {-5, "\\x;0", "5"}, {0.5, "General", "Ge0eral"},
  };
  // clang-format on
  expectFormatted("C", rows);
}

}  // namespace
}  // namespace qvn
