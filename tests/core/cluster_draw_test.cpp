// The documented draw where table locks hold at one of several servers only.
#include <gtest/gtest.h>

#include "qvn/core/consecutive.h"
#include "tests/support/provider_error_of.h"
#include "tests/support/scripted_driver.h"

namespace qvn::core {
namespace {

TEST(ClusterDraw, TheDocumentedDrawIsRefusedBeforeAnyStatement) {
  const auto script = std::make_shared<test::Script>();
  script->isClustered = true;
  const auto connection = test::connectionTo(script);
  host::QueryPtr query;
  const auto error = test::providerError([&] { TraeSiguiente("ventas", connection, {}, query); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), data::provider_number::kNotSupported);
  EXPECT_NE(error->description().find("TraeSiguienteSeguro"), std::string::npos);
  EXPECT_TRUE(script->statements.empty());
}

}  // namespace
}  // namespace qvn::core
