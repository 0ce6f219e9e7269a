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
    const char16_t* name;
    const char16_t* pattern;
    bool fits;
  };
  static constexpr Row kRows[] = {
      {u"a.txt", u"a.txt", true},
      {u"a.txt", u"a.tx", false},
      {u"a.tx", u"a.txt", false},
      {u"a", u"*.*", true},
      {u"a.txt", u"*", true},
      {u"a.txt", u"*.txt", true},
      {u"a.txt.b", u"*.txt", false},
      {u"a.txt.txt", u"*.txt", true},
      {u"aab", u"a*ab", true},
      {u"ab", u"a*ab", false},
      {u"abc", u"a?c", true},
      {u"ac", u"a?c", false},
      {u"abc", u"abc***", true},
      {u"", u"*", true},
      {u"", u"?", false},
      {u"", u"", true},
      {u"a", u"", false},
      {u"a[b]", u"a[b]", true},
      {u"A", u"a", false},
      {u"abababab", u"*ab?b*b", true},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(matchesWildcard(row.name, row.pattern), row.fits) << fromWide(row.name) << " " << fromWide(row.pattern);
  }
}

}  // namespace
}  // namespace qvn::devices
