#include "qvn/base/path.h"

#include <gtest/gtest.h>

#include "tests/support/error_of.h"

namespace qvn {
namespace {

TEST(HostPath, ReadsBothSeparators) {
  EXPECT_EQ(hostPath("/tmp\\ñandú/a b\\c.Log").native(), "/tmp/ñandú/a b/c.Log");
  EXPECT_EQ(hostPath("").native(), "");
  EXPECT_EQ(hostPath("datos\\\\x").native(), "datos//x");
  EXPECT_EQ(test::errorNumber([] { hostPath(std::string_view("a\0b", 3)); }), 52);
}

}  // namespace
}  // namespace qvn
