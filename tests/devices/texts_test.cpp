// What paths of the device are made of.
#include <gtest/gtest.h>

#include "qvn/devices/wide_text.h"
#include "qvn/devices/wildcard.h"

namespace qvn::devices {
namespace {

TEST(WideText, GoesThereAndBack) {
  struct Row {
    std::string narrow;
    std::u16string wide;
  };
  const Row rows[] = {{"", u""},
                      {"a\\ñ", u"a\\ñ"},
                      {"日本", u"日本"},
                      {"😀", u"\xD83D\xDE00"},
                      {"\uFFFF", u"\xFFFF"},
                      {"\U0010FFFF", u"\xDBFF\xDFFF"},
                      {"\U00010000", u"\xD800\xDC00"}};
  for (const Row& row : rows) {
    EXPECT_EQ(toWide(row.narrow), row.wide) << row.narrow;
    EXPECT_EQ(fromWide(row.wide), row.narrow) << row.narrow;
  }
}

TEST(WideText, ReplacesWhatIsNoCharacter) {
  EXPECT_EQ(toWide("a\xFF\xC3"), u"a\uFFFD\uFFFD");
  EXPECT_EQ(fromWide(u"\xD83D"), "\uFFFD");
  EXPECT_EQ(fromWide(u"\xD83Dx"), "\uFFFDx");
  EXPECT_EQ(fromWide(u"\xDE00\xD83D"), "\uFFFD\uFFFD");
  EXPECT_EQ(fromWide(u"\xD83D\xD83D\xDE00"), "\uFFFD😀");
}

TEST(Wildcard, FitsTheWholeName) {
  struct Row {
    std::u16string name;
    std::vector<std::u16string> fitting;
    std::vector<std::u16string> others;
  };
  const Row rows[] = {{u"a.txt", {u"a.txt", u"*", u"*.txt"}, {u"a.tx"}},
                      {u"a.tx", {}, {u"a.txt"}},
                      {u"a.txt.b", {}, {u"*.txt"}},
                      {u"a.txt.txt", {u"*.txt"}, {}},
                      {u"", {u"*", u""}, {u"?"}},
                      {u"a", {u"*.*"}, {u""}},
                      {u"A", {}, {u"a"}},
                      {u"ac", {}, {u"a?c"}},
                      {u"abc", {u"a?c", u"abc***"}, {}},
                      {u"ab", {}, {u"a*ab"}},
                      {u"aab", {u"a*ab"}, {}},
                      {u"a[b]", {u"a[b]"}, {}},
                      {u"abababab", {u"*ab?b*b"}, {}}};
  for (const Row& row : rows) {
    SCOPED_TRACE(fromWide(row.name));
    for (const auto& pattern : row.fitting) EXPECT_TRUE(matchesWildcard(row.name, pattern)) << fromWide(pattern);
    for (const auto& pattern : row.others) EXPECT_FALSE(matchesWildcard(row.name, pattern)) << fromWide(pattern);
  }
}

}  // namespace
}  // namespace qvn::devices
