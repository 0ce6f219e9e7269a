#include "apps/qvn/table_writer.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>

namespace qvn::cli {
namespace {

class TableWriting : public testing::Test {
 protected:
  ~TableWriting() override {
    for (const int end : ends_) close(end);
  }

  // What was written since the last call.
  std::string take() {
    out.flush();
    std::string text(1U << 20U, '\0');
    const ssize_t count = read(ends_[0], text.data(), text.size());
    text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return text;
  }

 private:
  static std::array<int, 2> newPipe() {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK), 0);
    return ends;
  }
  const std::array<int, 2> ends_ = newPipe();

 protected:
  Output out{ends_[1], Output::OnFailure::Ignore};
};

TEST_F(TableWriting, AlignsByWhatTheColumnHolds) {
  TableWriter table(out, {"nombre", "saldo", "mezcla", "vacía"}, 2);
  table.add({textCell("Muñoz"), numberCell("1,160.00"), numberCell("1"), nullCell()});
  table.add({textCell("日本"), nullCell(), textCell("dos"), nullCell()});
  table.end();
  EXPECT_EQ(take(),
            "  nombre     saldo  mezcla  vacía\n"
            "  ──────  ────────  ──────  ──────\n"
            "  Muñoz   1,160.00  1       <NULL>\n"
            "  日本      <NULL>  dos     <NULL>\n");
}

TEST_F(TableWriting, HoldsBackOnlyTheFirstRows) {
  TableWriter table(out, {"n", "texto"});
  for (int i = 0; i < 1000; ++i) table.add({numberCell("1"), textCell("x")});
  ASSERT_FALSE(take().empty());
  // The widths are fixed by then; a longer value is still written whole.
  table.add({numberCell("12345"), textCell("largo")});
  EXPECT_EQ(take(), "12345  largo\n");
}

TEST_F(TableWriting, HoldsBackNoMoreThanAMegabyte) {
  TableWriter table(out, {"texto", "n"});
  for (int i = 0; i < 3; ++i) table.add({textCell(std::string(400'000, 'x')), numberCell("1")});
  EXPECT_FALSE(take().empty());
}

}  // namespace
}  // namespace qvn::cli
