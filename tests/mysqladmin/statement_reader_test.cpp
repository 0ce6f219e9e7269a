#include "qvn/mysqladmin/statement_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "qvn/base/runtime_error.h"
#include "qvn/mysqladmin/database_restore.h"
#include "tests/support/error_of.h"

namespace qvn::mysqladmin {
namespace {

// Gives a text in pieces of a size.
class TextSource final : public DumpSource {
 public:
  TextSource(std::string text, std::size_t piece) : text_(std::move(text)), piece_(piece) {}
  std::size_t read(std::span<char> room) override {
    const std::size_t count = std::min({room.size(), piece_, text_.size() - at_});
    std::memcpy(room.data(), text_.data() + at_, count);
    at_ += count;
    return count;
  }
  [[nodiscard]] std::int64_t taken() const override { return static_cast<std::int64_t>(at_); }
  [[nodiscard]] std::int64_t length() const override { return static_cast<std::int64_t>(text_.size()); }

 private:
  std::string text_;
  std::size_t piece_;
  std::size_t at_ = 0;
};

struct Row {
  const char* why;
  std::string text;
  std::vector<std::string> statements;
  std::string unfinished = {};
};

constexpr std::size_t kLongestInsert = 40;

// Every row is read in pieces of one byte, of a few and as a whole.
template <typename MakeReader>
void expectStatements(const std::vector<Row>& rows, MakeReader makeReader) {
  for (const Row& row : rows) {
    for (const std::size_t piece : {std::size_t{1}, std::size_t{7}, std::size_t{1000}}) {
      SCOPED_TRACE(row.why);
      TextSource source(row.text, piece);
      const auto reader = makeReader(source);
      std::vector<std::string> statements;
      for (std::string statement; reader->next(statement);) statements.push_back(statement);
      EXPECT_EQ(statements, row.statements);
      EXPECT_EQ(reader->unfinished(), row.unfinished);
    }
  }
}

TEST(ReadByLines, FollowsTheRulesOfTheHostsDumps) {
  const std::vector<Row> rows = {
      {"nothing", "", {}},
      {"comments and empty lines are skipped", "\r\n# x;\r\n/* y; */\r\n   \r\nUSE `a`;\r\n", {"USE `a`;"}},
      {"blanks around a line go, tabs stay", "  \tDO 1; \r\n", {"\tDO 1;"}},
      {"lines are joined without anything", "CREATE (\n  a,\n  b\n);\n", {"CREATE (a,b);"}},
      {"inside a statement nothing is skipped", "A\n#x\n\n/*y*/\nB;\n", {"A#x/*y*/B;"}},
      {"a quoted ; at a line's end ends it", "A ('x;\ny');\n", {"A ('x;", "y');"}},
      {"two on a line are one", "A; B;\n", {"A; B;"}},
      {"a comment that goes on after its end runs", "/* a */ B;\n", {"/* a */ B;"}},
      {"other tools' comments swallow what follows", "-- x\nA;\n", {"-- xA;"}},
      {"only the last carriage return goes", "A\r\r\n;\n", {"A\r;"}},
      {"no last line end", "A;\nB;", {"A;", "B;"}},
      {"no end at all", "A;\nB\n  C", {"A;"}, "BC"},
  };
  expectStatements(rows, readByLines);
}

TEST(ReadByGrammar, TellsTextsFromWhatStandsAroundThem) {
  const std::vector<Row> rows = {
      {"nothing", " \r\n", {}},
      {"comments", "-- x;\n#y;\nA -- z;\nB/* ; */C;--\n", {"A B C"}},
      {"two dashes alone are none", "SELECT 1--1;", {"SELECT 1--1"}},
      {"what servers execute stays", "/*!40101 SET a */;/*M!100 B*/;", {"/*!40101 SET a */", "/*M!100 B*/"}},
      {"texts", "A ';''\\';#' \"\\\";--\" `;``\\`;B;", {"A ';''\\';#' \"\\\";--\" `;``\\`", "B"}},
      {"line breaks stay", "A\n'b\r\nc';", {"A\n'b\r\nc'"}},
      {"delimiters", "DELIMITER ;;\nA; B;;\ndelimiter ;\nC;", {"A; B", "C"}},
      {"empty statements are none", ";;A;", {"A"}},
      {"no end", "A;B 'x", {"A"}, "B 'x"},
      {"an unclosed comment", "A;/* B;", {"A"}},
  };
  expectStatements(rows, [](DumpSource& source) { return readByGrammar(source, kLongestInsert); });
}

TEST(ReadByGrammar, CutsLongInsertsBetweenRows) {
  const std::string start = "INSERT INTO t (a) VALUES ";
  const std::vector<Row> rows = {
      {"short enough", start + "(1),(2);", {start + "(1),(2)"}},
      // 25 bytes before the rows: two rows of 7 and a comma make 40.
      {"as long as allowed", start + "('abc'),('def');", {start + "('abc'),('def')"}},
      {"one row too many", start + "('abc'),('def'),('ghi');B;", {start + "('abc'),('def')", start + "('ghi')", "B"}},
      {"a row longer than allowed stays whole",
       start + "('aaaaaaaaaaaaaaaaaaaa'),(f(1,2)),(3);",
       {start + "('aaaaaaaaaaaaaaaaaaaa')", start + "(f(1,2)),(3)"}},
      {"marks in texts are none", start + "('),('),('),(',\"),(\");", {start + "('),(')", start + "('),(',\"),(\")"}},
      {"replace, in any case",
       "replace t values('0123456789'),('0123456789'),('0123456789');",
       {"replace t values('0123456789')", "replace t values('0123456789')", "replace t values('0123456789')"}},
      {"what is no insert of rows",
       "SELECT ('0123456789'),('0123456789'),('0123456789');",
       {"SELECT ('0123456789'),('0123456789'),('0123456789')"}},
  };
  expectStatements(rows, [](DumpSource& source) { return readByGrammar(source, kLongestInsert); });

  TextSource source(start + "('abc'),('def'),('ghi') ON DUPLICATE KEY UPDATE a = 1;", 1000);
  const auto reader = readByGrammar(source, kLongestInsert);
  std::string statement;
  ASSERT_TRUE(reader->next(statement));
  EXPECT_EQ(test::errorNumber([&] { reader->next(statement); }), error_number::kInvalidCall);
}

TEST(ConcernsDatabase, TellsWhatWouldLeaveTheDatabase) {
  for (const char* statement :
       {"USE `a`", "use\ta", "USE`a`", "DROP DATABASE a", "create\n schema a", "CREATE OR REPLACE DATABASE a",
        "/*!40000 DROP DATABASE IF EXISTS `a`*/", "ALTER DATABASE a CHARACTER SET latin1"}) {
    EXPECT_TRUE(concernsDatabase(statement)) << statement;
  }
  for (const char* statement : {"", "USER", "DROP TABLE `database`", "CREATE TABLE use_x (a INT)",
                                "/*!40101 SET a=1 */", "INSERT INTO t VALUES ('USE a')"}) {
    EXPECT_FALSE(concernsDatabase(statement)) << statement;
  }
}

}  // namespace
}  // namespace qvn::mysqladmin
