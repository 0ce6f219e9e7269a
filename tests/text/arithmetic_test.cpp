#include "qvn/text/arithmetic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/support/error_of.h"

namespace qvn::text {
namespace {

TEST(Sqr2, IsZeroForNegativesAndFailsWithoutANumber) {
  EXPECT_EQ(Sqr2(9), 3);
  EXPECT_EQ(Sqr2(Currency::fromScaled(62500)), 2.5);
  EXPECT_EQ(Sqr2("2"), std::sqrt(2.0));
  EXPECT_EQ(Sqr2(-4.0), 0);
  EXPECT_EQ(Sqr2(true), 0);  // True is -1
  EXPECT_EQ(Sqr2(Empty{}), 0);
  EXPECT_EQ(test::errorNumber([] { Sqr2(Null{}); }), 94);
  EXPECT_EQ(test::errorNumber([] { Sqr2("abc"); }), 13);
}

// Equal numbers with different signs of zero show which one was taken.
TEST(MaxMin, TakeTheDocumentedOperandOnEquality) {
  EXPECT_FALSE(std::signbit(Max(0.0, -0.0)));
  EXPECT_TRUE(std::signbit(Max(-0.0, 0.0)));
  EXPECT_TRUE(std::signbit(Min(0.0, -0.0)));
  EXPECT_FALSE(std::signbit(Min(-0.0, 0.0)));
  EXPECT_EQ(Max(1, 2), 2);
  EXPECT_EQ(Max(2, 1), 2);
  EXPECT_EQ(Min(1, 2), 1);
  EXPECT_EQ(Min(2, 1), 1);
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(Max(kNan, 1), 1);
  EXPECT_EQ(Min(kNan, 1), 1);
}

TEST(BolValue, IsTrueForOneAlone) {
  EXPECT_TRUE(bolValue(1));
  EXPECT_FALSE(bolValue(0));
  EXPECT_FALSE(bolValue(-1));
  EXPECT_FALSE(bolValue(257));
  EXPECT_EQ(bolInt(true), 1);
  EXPECT_EQ(bolInt(false), 0);
}

}  // namespace
}  // namespace qvn::text
