#include "tests/base/pattern/pattern_rows.h"

namespace qvn {
namespace {

using test::expectFormatted;

TEST(TextPattern, FillsPlacesFromTheRight) {
  // clang-format off
  const test::PatternRows rows = {
      {"abc", "@@@@@", "  abc"}, {"abc", "&&&&&", "abc"}, {"a", "@&@", " a"},
      {"5551234", "(@@@) @@@-@@@@", "(   ) 555-1234"}, {"5551234", "@@@-@@@@", "555-1234"},
      {"5551234", "@@-@@", "55512-34"}, {"x", "@dm0", "xdm0"}, {"x", "\\@@", "@x"},
      // characters, not bytes; a byte that is not UTF-8 is a character
      {"ñú", "@@@", " ñú"}, {"😀", "@@", " 😀"}, {"\xff\xfe", "@@@", " \xff\xfe"},
  };
  // clang-format on
  expectFormatted("C", rows);
}

TEST(TextPattern, FillsFromTheLeftOnRequest) {
  expectFormatted("C", {{"abc", "@@@@@!", "abc  "},
                        {"abc", "@!@@@@", "abc  "},
                        {"5551234", "!(@@@) @@@-@@@@", "(555) 123-4   "},
                        {"abc", "!&-&-&-&", "a-b-c-"},
                        {"abcd", "!(@-@)", "(a-bcd)"}});
}

TEST(TextPattern, ChangesLetterCase) {
  const test::PatternRows rows = {
      {"ñandú Ábc", ">", "ÑANDÚ ÁBC"}, {"ÑANDÚ ÁBC", "<", "ñandú ábc"}, {"aB", "<>", "AB"},
      {"ab", ">@@@@", "  AB"},         {"ab", ">\"x\"@@", "xAB"},       {"ΆΎΩΣЯЁŸŽİß", "<", "άύωσяёÿžİß"}};
  expectFormatted("C", rows);
}

TEST(TextPattern, HasASectionForNothing) {
  // clang-format off
  const test::PatternRows rows = {
      {"x", "&;vacio", "x"}, {"", "&;\"vacío\"", "vacío"}, {Null{}, "&;\"vacío\"", "vacío"},
      {Empty{}, "&;\"vacío\"", "vacío"}, {"", "@@;", ""}, {"", "@@", "  "}, {Null{}, "@@", ""},
  };
  // clang-format on
  expectFormatted("C", rows);
}

TEST(TextPattern, TakesOtherValuesAsText) {
  expectFormatted("es_ES.UTF-8", {{1.5, "@@@@@", "  1,5"},
                                  {0.1 + 0.2, "&", "0,30000000000000004"},
                                  {true, "<", "true"},
                                  {Date::fromCivil(2012, 3, 7), "!@@/", "07/03/2012/"}});
}

}  // namespace
}  // namespace qvn
