// Calls that fail: rows of a table of cases, and what their errors have to tell.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "qvn/data/connection_string.h"
#include "tests/support/provider_error_of.h"

namespace qvn::test {

struct Failure {
  std::string cause;  // the statement or the connection string
  std::int32_t number;
  std::optional<std::int32_t> nativeError = {};
  std::optional<std::string> sqlState = {};
  std::string words = {};  // part of the description
  bool isLockConflict = false;
};

/// `call` has to fail with each cause as its row says, and to keep the passwords, which begin with "secreto".
template <typename Call>
void expectFailures(std::string_view source, const std::vector<Failure>& failures, Call call) {
  for (const Failure& failure : failures) {
    SCOPED_TRACE(data::withoutPassword(failure.cause).substr(0, 200));
    const auto error = providerError([&] { call(failure.cause); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), failure.number);
    EXPECT_NE(error->description().find(failure.words), std::string::npos) << error->description();
    EXPECT_EQ(error->description().find("secreto"), std::string::npos) << error->description();
    for (const data::ErrorItem& item : error->errors()) {
      EXPECT_EQ(item.description.find("secreto"), std::string::npos) << item.description;
    }
    if (!failure.nativeError && !failure.sqlState) continue;
    ASSERT_FALSE(error->errors().empty());
    const data::ErrorItem& first = error->errors().front();
    EXPECT_EQ(first.number, failure.number);
    EXPECT_EQ(first.nativeError, failure.nativeError.value_or(first.nativeError));
    EXPECT_EQ(first.sqlState, failure.sqlState.value_or(first.sqlState));
    EXPECT_EQ(first.source, source);
    EXPECT_EQ(first.isLockConflict, failure.isLockConflict);
  }
}

}  // namespace qvn::test
