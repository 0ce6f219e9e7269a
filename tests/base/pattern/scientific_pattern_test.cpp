#include "tests/base/pattern/pattern_rows.h"

namespace qvn {
namespace {

using test::expectFormatted;

TEST(ScientificPattern, FitsTheMantissaToItsPlaces) {
  expectFormatted("C", {
                           {"one integer digit", 12345, "0.00E+00", "1.23E+04"},
                           {"small letter", 12345, "0.00e+00", "1.23e+04"},
                           {"optional decimals", 12300, "0.###E+0", "1.23E+4"},
                           {"two integer digits", 12345, "00.0E+0", "12.3E+3"},
                           {"none", 12345, ".00E+0", ".12E+5"},
                           {"below one", 0.00125, "0.0E+00", "1.3E-03"},
                           {"negative", -12345, "0.0E+0", "-1.2E+4"},
                           {"percent", 0.5, "0.0E+0%", "5.0E+1%"},
                           {"literals around", 12345, "(0.0E+0) x", "(1.2E+4) x"},
                           {"places behind the exponent are text", 12345, "0.0E+0 0", "1.2E+4 0"},
                           {"zero", 0, "0.00E+00", "0.00E+00"},
                           {"the smallest Double", 5e-324, "0.0E+0", "5.0E-324"},
                       });
}

TEST(ScientificPattern, WritesTheExponentAsAsked) {
  expectFormatted("C", {
                           {"E- shows no plus", 12345, "0.0E-00", "1.2E04"},
                           {"but a minus", 0.012, "0.0E-00", "1.2E-02"},
                           {"three digits", 12345, "0.0E+000", "1.2E+004"},
                           {"# asks for no digits", 12345, "0.0E+##", "1.2E+4"},
                           {"more digits than places", 1e100, "0E+0", "1E+100"},
                           {"E without a sign is text", 5, "0E0", "0E5"},
                           {"E without a place behind it is text", 5, "0E+", "5E+"},
                           {"E before the first place is text", 5, "E+0", "E+5"},
                       });
}

TEST(ScientificPattern, KeepsTheExponentAMultipleForEngineers) {
  expectFormatted("C", {
                           {"one digit", 1234, "##0.0E+0", "1.2E+3"},
                           {"two digits", 12345, "##0.0E+0", "12.3E+3"},
                           {"three digits", 123456, "##0.0E+0", "123.5E+3"},
                           {"below one", 0.012, "##0.0E+0", "12.0E-3"},
                           {"exactly at a step", 0.001, "##0.0E+0", "1.0E-3"},
                       });
}

TEST(ScientificPattern, MovesTheExponentWhenRoundingCarries) {
  expectFormatted("C", {
                           {"one place", 9.996, "0.00E+00", "1.00E+01"},
                           {"two places", 999.6, "00.0E+0", "10.0E+2"},
                           {"engineering", 999.95, "##0.0E+0", "1.0E+3"},
                           {"no integer place", 0.999, ".00E+0", ".10E+1"},
                       });
}

}  // namespace
}  // namespace qvn
