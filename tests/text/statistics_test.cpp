#include "qvn/text/statistics.h"

#include <gtest/gtest.h>

#include <cmath>

namespace qvn::text {
namespace {

TEST(StdDev, LeavesOutFirstAndLast) {
  EXPECT_EQ(StdDev(Array{{"any", 2, 4, 6, 100}}), 2);
  EXPECT_EQ(StdDev(Array{{2, 4, 6, Null{}}, 1}), 2);
  EXPECT_DOUBLE_EQ(StdDev(Array{{0, "4", Empty{}, true, 9}}), std::sqrt(7.0));  // 4, 0, -1: (9 + 1 + 4) / 2
  EXPECT_EQ(StdDev(Array{{7, 0, 2, 4, 6, 100}, -1}), 2);
}

TEST(StdDev, IsZeroWhereThereIsNone) {
  const Variant values[] = {Array{},   Array{{1, 2, 9}},          Array{{0, 1, "x", 3}},      Array{{0, 1, Null{}, 3}},
                            Variant(), Array{{1, 2, 3, 4, 5}, 2}, Array{{0, 1e308, 1e308, 3}}};
  for (const Variant& value : values) {
    EXPECT_EQ(StdDev(value), 0);
  }
}

class FixedRandom final : public RandomSource {
 public:
  double next() override { return 0.75; }
};

TEST(NumeroAleatorio, CoversTheRangeUntruncated) {
  FixedRandom random;
  EXPECT_EQ(numeroAleatorio(10, 1, random).toDouble(), 8.5);
  EXPECT_EQ(numeroAleatorio(1, 10, random).toDouble(), 4);
  EXPECT_EQ(numeroAleatorio(2147483647, -2147483647 - 1, random).toDouble(), 1073741824);
  EXPECT_EQ(numeroAleatorio(1, 1, random).type(), VariantType::Double);
}

}  // namespace
}  // namespace qvn::text
