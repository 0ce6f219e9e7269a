#include "apps/qvn/table_writer.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>

namespace qvn::cli {
namespace {

// What was written to a pipe so far.
class Written {
 public:
  Written() { EXPECT_EQ(pipe2(ends_.data(), O_CLOEXEC | O_NONBLOCK), 0); }
  ~Written() {
    close(ends_[0]);
    close(ends_[1]);
  }
  Written(const Written&) = delete;
  Written& operator=(const Written&) = delete;

  [[nodiscard]] int descriptor() const { return ends_[1]; }

  std::string take() {
    std::string text;
    std::array<char, 4096> part{};
    for (ssize_t count = 0; (count = read(ends_[0], part.data(), part.size())) > 0;) {
      text.append(part.data(), static_cast<std::size_t>(count));
    }
    return text;
  }

 private:
  std::array<int, 2> ends_{};
};

TEST(TableWriter, AlignsByWhatTheColumnHolds) {
  Written written;
  Output out(written.descriptor(), Output::OnFailure::Throw);
  TableWriter table(out, {"nombre", "saldo", "mezcla", "vacía"}, 2);
  table.add({textCell("Muñoz"), numberCell("1,160.00"), numberCell("1"), nullCell()});
  table.add({textCell("日本"), nullCell(), textCell("dos"), nullCell()});
  table.end();
  out.flush();
  EXPECT_EQ(written.take(),
            "  nombre     saldo  mezcla  vacía\n"
            "  ──────  ────────  ──────  ──────\n"
            "  Muñoz   1,160.00  1       <NULL>\n"
            "  日本      <NULL>  dos     <NULL>\n");
}

TEST(TableWriter, HoldsBackOnlyTheFirstRows) {
  Written written;
  Output out(written.descriptor(), Output::OnFailure::Throw);
  TableWriter table(out, {"n", "texto"});
  for (int i = 0; i < 1000; ++i) table.add({numberCell("1"), textCell("x")});
  out.flush();
  ASSERT_FALSE(written.take().empty());
  // The widths are fixed by then; a longer value is still written whole.
  table.add({numberCell("12345"), textCell("largo")});
  out.flush();
  EXPECT_EQ(written.take(), "12345  largo\n");
}

TEST(TableWriter, HoldsBackNoMoreThanAMegabyte) {
  Written written;
  Output out(written.descriptor(), Output::OnFailure::Ignore);
  TableWriter table(out, {"texto", "n"});
  for (int i = 0; i < 3; ++i) table.add({textCell(std::string(400'000, 'x')), numberCell("1")});
  EXPECT_FALSE(written.take().empty());
}

}  // namespace
}  // namespace qvn::cli
