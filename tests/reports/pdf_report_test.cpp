// Reports as PDF, read back by poppler's programs.
#include <gtest/gtest.h>

#include "tests/exports/shop_rows.h"
#include "tests/reports/written_report.h"
#include "tests/support/error_of.h"
#include "tests/support/file_size_limit.h"
#include "tests/support/program_output.h"

namespace qvn::reports {
namespace {

std::size_t countOf(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
  return count;
}

class PdfReport : public testing::Test {
 protected:
  void save(const data::RecordsetPtr& rows, const ReportSettings& settings, Paper paper = Paper::Letter) {
    EXPECT_TRUE(Report(settings).save(rows, path_, {.onExisting = OnExisting::Replace, .paper = paper}));
    EXPECT_EQ(folder_.fileCount(), 1);
  }
  [[nodiscard]] std::string text() const { return test::outputOf("pdftotext -layout '" + path_ + "' -"); }
  [[nodiscard]] std::string facts() const { return test::outputOf("pdfinfo '" + path_ + "'"); }

  test::ScratchFolder folder_;
  std::string path_ = folder_.path("v.pdf");
};

TEST_F(PdfReport, RepeatsHeadingsAndNumbersPages) {
  save(test::numbersTo(120, "n, 'Piñata ' || n AS articulo"),
       {.title = "Existencias",
        .columns = {{.field = "articulo", .heading = "Artículo"}, {.field = "n", .isSummed = true}}});
  const std::string words = text();
  // 56 lines a page of letter paper, four of them title and headings.
  EXPECT_NE(facts().find("Pages:           3\n"), std::string::npos) << facts();
  EXPECT_NE(facts().find("Page size:       612 x 792 pts (letter)"), std::string::npos) << facts();
  for (const char* page : {"Página 1\n", "Página 2\n", "Página 3\n"}) EXPECT_EQ(countOf(words, page), 1U) << page;
  EXPECT_EQ(countOf(words, "Existencias"), 3U);
  EXPECT_EQ(countOf(words, "Artículo"), 3U);
  EXPECT_EQ(countOf(words, "Piñata "), 120U);
  EXPECT_EQ(countOf(words, "Total general"), 1U);
  EXPECT_EQ(countOf(words, " 7260\n"), 1U);  // 120 * 121 / 2
}

TEST_F(PdfReport, CutsTextsAndNeverNumbers) {
  save(test::rowsOf("SELECT 'Jabón de tocador con avena y miel' AS a, 1234567890 AS n, 12 AS m"),
       {.columns = {{.field = "a", .width = 12}, {.field = "n", .width = 5}, {.field = "m", .width = 5}}}, Paper::A4);
  const std::string words = text();
  EXPECT_NE(words.find("…"), std::string::npos) << words;
  EXPECT_EQ(words.find("avena"), std::string::npos) << words;
  EXPECT_NE(words.find("#####"), std::string::npos) << words;
  EXPECT_EQ(words.find("12345"), std::string::npos) << words;
  EXPECT_NE(facts().find("(A4)"), std::string::npos) << facts();
}

TEST_F(PdfReport, SmallLettersMakeRoomUntilTheyAreTooSmall) {
  const auto rows = [] { return test::rowsOf("SELECT 'izquierda' AS a, 'derecha' AS b"); };
  save(rows(), {.columns = {{.field = "a", .width = 100}, {.field = "b", .width = 40, .alignment = Alignment::Right}}});
  EXPECT_EQ(countOf(text(), "derecha"), 1U);
  const ReportSettings wide{.columns = {{.field = "a", .width = 180}, {.field = "b", .width = 10}}};
  save(rows(), wide, Paper::LetterLandscape);
  EXPECT_NE(facts().find("792 x 612"), std::string::npos) << facts();
  EXPECT_EQ(test::errorNumber([&] { Report(wide).save(rows(), folder_.path("w.pdf")); }), 5);
  EXPECT_EQ(folder_.fileCount(), 1);
}

TEST_F(PdfReport, AFullDiskLeavesNothing) {
  for (const rlim_t limit : {rlim_t{0}, rlim_t{3000}}) {
    SCOPED_TRACE(limit);
    const test::FileSizeLimit guard(limit);
    EXPECT_EQ(test::errorNumber([&] { Report().save(test::numbersTo(500), path_); }), error_number::kDiskFull);
    EXPECT_EQ(folder_.fileCount(), 0);
  }
}

}  // namespace
}  // namespace qvn::reports
