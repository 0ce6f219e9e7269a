#include "qvn/base/runtime_error.h"

#include <gtest/gtest.h>

namespace qvn {
namespace {

TEST(RuntimeError, HasATextForEveryNumber) {
  const std::string general = runtimeErrorText(-1);
  EXPECT_FALSE(general.empty());
  for (const std::int32_t number : {5, 6, 9, 13, 14, 52, 53, 58, 62, 70, 76, 91, 94, 457}) {
    EXPECT_NE(runtimeErrorText(number), general) << number;
  }
  EXPECT_EQ(runtimeErrorText(94), "Uso no válido de Null");
}

}  // namespace
}  // namespace qvn
