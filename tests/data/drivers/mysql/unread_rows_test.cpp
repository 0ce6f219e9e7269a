#include "qvn/data/drivers/mysql/unread_rows.h"

#include <gtest/gtest.h>

#include <string>

namespace qvn::data::mysql {
namespace {

// The lengths where the stored form of a length, or the block, grows.
const std::size_t kLengths[] = {0, 1, 126, 127, 128, 16382, 16383, 16384, 300'000};

TEST(UnreadRows, GiveBackEveryLengthInOrder) {
  UnreadRows rows;
  for (const std::size_t length : kLengths) {
    const std::string text(length, static_cast<char>('a' + length % 26));
    rows.append({text, std::string_view(), "fin"});
  }
  RowTexts row(3);
  for (const std::size_t length : kLengths) {
    SCOPED_TRACE(length);
    ASSERT_TRUE(rows.next(row));
    EXPECT_NE(row[0].data(), nullptr);
    EXPECT_EQ(row[0], std::string(length, static_cast<char>('a' + length % 26)));
    EXPECT_EQ(row[1].data(), nullptr);
    EXPECT_EQ(row[2], "fin");
  }
  EXPECT_FALSE(rows.next(row));
  EXPECT_FALSE(rows.next(row));
}

// A cursor appends while its current row points into the store.
TEST(UnreadRows, RowsHandedOutStayWhileOthersAreAdded) {
  UnreadRows rows;
  rows.append({"primero"});
  RowTexts row(1);
  ASSERT_TRUE(rows.next(row));
  const std::string text(1000, 'x');
  for (int i = 0; i < 1000; ++i) rows.append({text});
  EXPECT_EQ(row[0], "primero");
  int count = 0;
  while (rows.next(row)) {
    EXPECT_EQ(row[0], text);
    ++count;
  }
  EXPECT_EQ(count, 1000);
}

}  // namespace
}  // namespace qvn::data::mysql
