#include "tests/base/pattern/pattern_rows.h"

namespace qvn {
namespace {

using test::expectFormatted;

TEST(ScientificPattern, FitsTheMantissaToItsPlaces) {
  const test::PatternRows rows = {
      {12345, "0.00E+00", "1.23E+04"}, {12345, "0.00e+00", "1.23e+04"}, {12300, "0.###E+0", "1.23E+4"},
      {12345, "00.0E+0", "12.3E+3"},   {12345, ".00E+0", ".12E+5"},     {0.00125, "0.0E+00", "1.3E-03"},
      {-12345, "0.0E+0", "-1.2E+4"},   {0.5, "0.0E+0%", "5.0E+1%"},     {12345, "(0.0E+0) x", "(1.2E+4) x"},
      {12345, "0.0E+0 0", "1.2E+4 0"}, {0, "0.00E+00", "0.00E+00"},     {5e-324, "0.0E+0", "5.0E-324"}};
  expectFormatted("C", rows);
}

TEST(ScientificPattern, WritesTheExponentAsAsked) {
  // clang-format off
  const test::PatternRows rows = {
      {12345, "0.0E-00", "1.2E04"}, {0.012, "0.0E-00", "1.2E-02"}, {12345, "0.0E+000", "1.2E+004"},
      {12345, "0.0E+##", "1.2E+4"}, {1e100, "0E+0", "1E+100"}, {5, "0E0", "0E5"}, {5, "0E+", "5E+"},
      {5, "E+0", "E+5"},
  };
  // clang-format on
  expectFormatted("C", rows);
}

// Engineering notation: places before the point make the exponent a multiple of their number.
TEST(ScientificPattern, MovesTheExponentToFitThePlaces) {
  // clang-format off
  const test::PatternRows rows = {
      {1234, "##0.0E+0", "1.2E+3"}, {12345, "##0.0E+0", "12.3E+3"}, {123456, "##0.0E+0", "123.5E+3"},
      {0.012, "##0.0E+0", "12.0E-3"}, {0.001, "##0.0E+0", "1.0E-3"},
      // rounding carries into the exponent
      {9.996, "0.00E+00", "1.00E+01"}, {999.6, "00.0E+0", "10.0E+2"}, {999.95, "##0.0E+0", "1.0E+3"},
      {0.999, ".00E+0", ".10E+1"},
  };
  // clang-format on
  expectFormatted("C", rows);
}

}  // namespace
}  // namespace qvn
