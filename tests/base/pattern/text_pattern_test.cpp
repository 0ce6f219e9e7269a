#include "tests/base/pattern/pattern_rows.h"

namespace qvn {
namespace {

using test::expectFormatted;

TEST(TextPattern, FillsPlacesFromTheRight) {
  expectFormatted("C", {
                           {"blanks for what is missing", "abc", "@@@@@", "  abc"},
                           {"nothing for what is missing", "abc", "&&&&&", "abc"},
                           {"both", "a", "@&@", " a"},
                           {"literals between", "5551234", "(@@@) @@@-@@@@", "(   ) 555-1234"},
                           {"exactly", "5551234", "@@@-@@@@", "555-1234"},
                           {"characters beyond the places", "5551234", "@@-@@", "55512-34"},
                           {"letters and digit places are literals", "x", "@dm0", "xdm0"},
                           {"escaped placeholder", "x", "\\@@", "@x"},
                       });
}

TEST(TextPattern, FillsFromTheLeftOnRequest) {
  expectFormatted("C", {
                           {"blanks at the end", "abc", "@@@@@!", "abc  "},
                           {"wherever the sign stands", "abc", "@!@@@@", "abc  "},
                           {"literals between", "5551234", "!(@@@) @@@-@@@@", "(555) 123-4   "},
                           {"nothing for what is missing", "abc", "!&-&-&-&", "a-b-c-"},
                           {"characters beyond the places", "abcd", "!(@-@)", "(a-bcd)"},
                       });
}

TEST(TextPattern, ChangesLetterCase) {
  expectFormatted("C", {
                           {"capitals", "ñandú Ábc", ">", "ÑANDÚ ÁBC"},
                           {"small letters", "ÑANDÚ ÁBC", "<", "ñandú ábc"},
                           {"the last one counts", "aB", "<>", "AB"},
                           {"with places", "ab", ">@@@@", "  AB"},
                           {"literals keep theirs", "ab", ">\"x\"@@", "xAB"},
                           {"Greek, Cyrillic, and the odd ranges", "ΆΎΩΣЯЁŸŽİß", "<", "άύωσяёÿžİß"},
                       });
}

TEST(TextPattern, CountsCharactersNotBytes) {
  expectFormatted("C", {
                           {"letters of two bytes", "ñú", "@@@", " ñú"},
                           {"four bytes", "😀", "@@", " 😀"},
                           {"bytes that are not UTF-8 count one by one", "\xff\xfe", "@@@", " \xff\xfe"},
                       });
}

TEST(TextPattern, HasASectionForNothing) {
  expectFormatted("C", {
                           {"text", "x", "&;vacio", "x"},
                           {"empty text", "", "&;\"vacío\"", "vacío"},
                           {"Null", Null{}, "&;\"vacío\"", "vacío"},
                           {"Empty", Empty{}, "&;\"vacío\"", "vacío"},
                           {"an empty section", "", "@@;", ""},
                           {"empty text, one section", "", "@@", "  "},
                           {"Null, one section", Null{}, "@@", ""},
                       });
}

TEST(TextPattern, TakesOtherValuesAsText) {
  expectFormatted("es_ES.UTF-8", {
                                     {"number", 1.5, "@@@@@", "  1,5"},
                                     {"number with every digit", 0.1 + 0.2, "&", "0,30000000000000004"},
                                     {"Boolean", true, "<", "true"},
                                     {"date", Date::fromCivil(2012, 3, 7), "!@@/", "07/03/2012/"},
                                 });
}

}  // namespace
}  // namespace qvn
