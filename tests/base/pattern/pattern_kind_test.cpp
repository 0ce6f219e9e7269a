#include "tests/base/pattern/pattern_rows.h"

namespace qvn {
namespace {

using test::expectFormatted;

TEST(PatternKind, IsDecidedByTheFirstPlaceOrCode) {
  const Variant day = Date::fromCivil(2012, 3, 7);  // day 40975
  expectFormatted("C",
                  {
                      {"a number under a date pattern is a day count", 40975.5, "dd/mm/yyyy hh:nn", "07/03/2012 12:00"},
                      {"a date under a number pattern is its serial", day, "#,##0.0", "40,975.0"},
                      {"place before code", 5, "0 d", "5 d"},
                      {"code before place", day, "d 0", "7 0"},
                      {"escaped code before place", 5, "\\d 0", "d 5"},
                      {"quoted place before code", day, "\"0\" d", "0 7"},
                      {"point, comma and percent decide nothing", day, ".,%d", ".,%7"},
                      {"text placeholder before place", 5, "@0", "50"},
                      {"place in a later section", -5, "\\x;0", "5"},
                      {"letters of a word that are codes", 0.5, "General", "Ge0eral"},
                      {"letters that are none", 5, "kg", "kg"},
                  });
}

}  // namespace
}  // namespace qvn
