#include "qvn/text/arithmetic.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/error_of.h"

namespace qvn::text {
namespace {

TEST(Arithmetic, Sqr2IsZeroForNegativesAndFailsWithoutANumber) {
  EXPECT_EQ(Sqr2("6.25"), 2.5);
  EXPECT_EQ(Sqr2(-4.0), 0);
  EXPECT_EQ(Sqr2(true), 0);  // True is -1
  EXPECT_EQ(test::errorNumber([] { Sqr2(Null{}); }), 94);
  EXPECT_EQ(test::errorNumber([] { Sqr2("abc"); }), 13);
}

// Zeros of different signs, which are equal, show which operand was taken.
TEST(Arithmetic, MaxAndMinTakeTheDocumentedOperandOnEquality) {
  EXPECT_TRUE(Max(1, 2) == 2 && Max(2, 1) == 2 && Min(1, 2) == 1 && Min(2, 1) == 1);
  EXPECT_TRUE(std::signbit(Max(-0.0, 0.0)) && !std::signbit(Max(0.0, -0.0)));
  EXPECT_TRUE(std::signbit(Min(0.0, -0.0)) && !std::signbit(Min(-0.0, 0.0)));
}

TEST(Arithmetic, OneAloneIsTrue) {
  EXPECT_TRUE(bolValue(1));
  EXPECT_FALSE(bolValue(0) || bolValue(-1) || bolValue(2) || bolValue(257));
  EXPECT_TRUE(bolInt(true) == 1 && bolInt(false) == 0);
}

}  // namespace
}  // namespace qvn::text
