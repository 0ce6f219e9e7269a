#include "apps/qvn/password_mask.h"

#include <gtest/gtest.h>

namespace qvn::cli {
namespace {

TEST(MaskPasswords, HidesWhatFollowsASecretName) {
  struct Row {
    const char* why;
    std::string_view text;
    std::string_view masked;
  };
  static constexpr Row kRows[] = {
      {"no secret", "using password: YES", "using password: YES"},
      {"a forgotten semicolon", "«Foo PWD=s3creto» no existe", "«Foo PWD=***» no existe"},
      {"any case, blanks before the sign", "x Password  = s3creto", "x Password  =***"},
      {"a semicolon may belong to the password", "PWD=\"s3;creto\";UID=a", "PWD=***"},
      {"up to the line end", "pwd=s3creto\nfin", "pwd=***\nfin"},
      {"masked already", "PWD=***;DATABASE=tienda", "PWD=***;DATABASE=tienda"},
      {"each of two", "«PWD=a» y «PASSWORD=b»", "«PWD=***» y «PASSWORD=***»"},
      {"the value is empty", "PWD=", "PWD=***"},
      {"the first mention is not the secret", "password y pwd=s3creto", "password y pwd=***"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(maskPasswords(row.text), row.masked);
  }
}

}  // namespace
}  // namespace qvn::cli
