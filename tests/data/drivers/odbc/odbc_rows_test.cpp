// Rows that come in blocks and long values that come in pieces, of every engine.
#include <ostream>

#include "tests/data/drivers/odbc/odbc_fixture.h"

namespace qvn::test {
namespace {

struct Engine {
  const char* name;
  const char* longText;
  const char* longBytes;
  std::size_t widestUnits;  // that a character of four bytes takes of a column's size
};

void PrintTo(const Engine& engine, std::ostream* out) { *out << engine.name; }

constexpr Engine kEngines[] = {{"Sqlite", "TEXT", "BLOB", 1},
                               {"MariaDb", "TEXT", "MEDIUMBLOB", 1},
                               {"SqlServer", "NVARCHAR(MAX)", "VARBINARY(MAX)", 2}};

std::string connectionString(const std::string& engine, const ScratchFolder& folder) {
  if (engine == "Sqlite") return sqliteConnectionString(folder);
  return engine == "MariaDb" ? mariaDbConnectionString() : serverVariable("QVN_TEST_TDS");
}

class OdbcRows : public testing::TestWithParam<Engine> {
 protected:
  /// A table of `count` rows, whose column i counts from 1, or with one row of values.
  void makeTable(const std::string& columns, int count) {
    session_->execute("CREATE TEMPORARY TABLE filas (" + columns + ")");
    std::string rows;
    for (int i = 1; i <= count; ++i)
      rows += (i == 1 ? "(" : ", (") + std::to_string(i) + ", 'fila " + std::to_string(i) + "')";
    if (count > 0) session_->execute("INSERT INTO filas VALUES " + rows);
  }
  [[nodiscard]] std::string quoted(const std::string& text) const {
    return session_->literal(text, data::FieldType::VarWChar);
  }

  ScratchFolder folder_;
  std::unique_ptr<data::Session> session_ = connectTo(connectionString(GetParam().name, folder_));
};

constexpr const char* kCounted = "i INTEGER, t VARCHAR(20)";
constexpr int kBlock = 128;

// "1: fila 1" and so on, from one row to another.
std::vector<std::string> countedRows(int from, int to) {
  std::vector<std::string> rows;
  for (int i = from; i <= to; ++i) rows.push_back(std::to_string(i) + ": fila " + std::to_string(i));
  return rows;
}

std::vector<std::string> readRows(data::Cursor& cursor, int most = 100'000) {
  std::vector<std::string> rows;
  Variant number;
  Variant text;
  while (most-- > 0 && cursor.next()) {
    cursor.read(0, number);
    cursor.read(1, text);
    rows.push_back(number.toText() + ": " + text.toText());
  }
  return rows;
}

TEST_P(OdbcRows, EveryRowOfEveryBlockComesOnce) {
  makeTable(kCounted, 300);
  for (const int count : {0, 1, kBlock - 1, kBlock, kBlock + 1, 2 * kBlock, 300}) {
    SCOPED_TRACE(count);
    const auto result = session_->execute("SELECT i, t FROM filas WHERE i <= " + std::to_string(count) + " ORDER BY i");
    ASSERT_NE(result.cursor, nullptr);
    EXPECT_EQ(readRows(*result.cursor), countedRows(1, count));
    EXPECT_FALSE(result.cursor->next());
  }
}

TEST_P(OdbcRows, AnotherStatementTakesNoRowAway) {
  makeTable(kCounted, 300);
  const std::string sql = "SELECT i, t FROM filas ORDER BY i";
  for (const int before : {0, 1, kBlock - 1, kBlock, kBlock + 1, 300}) {
    SCOPED_TRACE(before);
    const auto first = session_->execute(sql);
    EXPECT_EQ(readRows(*first.cursor, before), countedRows(1, before));
    const auto second = session_->execute(sql);
    EXPECT_EQ(readRows(*second.cursor, 2), countedRows(1, 2));
    EXPECT_EQ(scalar(*session_, "SELECT COUNT(*) FROM filas").toText(), "300");
    if (before > 0) {
      Variant current;
      first.cursor->read(0, current);
      EXPECT_EQ(current.toText(), std::to_string(before));
    }
    EXPECT_EQ(readRows(*second.cursor, 200), countedRows(3, 202));
    EXPECT_EQ(readRows(*first.cursor), countedRows(before + 1, 300));
  }
}

TEST_P(OdbcRows, TextsAreWholeOnBothSidesOfTheLongestInABlock) {
  for (const std::size_t size : {3999U, 4000U, 4001U}) {
    for (const std::string character : {"x", "ñ", "€", "🍕"}) {
      SCOPED_TRACE(std::to_string(size) + " x " + character);
      std::string text;
      const std::size_t count = character.size() == 4 ? size / GetParam().widestUnits : size;
      while (text.size() < count * character.size()) text += character;
      session_->execute("CREATE TEMPORARY TABLE textos (a VARCHAR(" + std::to_string(size) + "), i INTEGER)");
      session_->execute("INSERT INTO textos VALUES (" + quoted(text) + ", 1), (NULL, 2), ('corto', 3)");
      const auto result = session_->execute("SELECT a, i FROM textos ORDER BY i");
      const std::vector<std::string> rows = remaining(*result.cursor);
      ASSERT_EQ(rows.size(), 3U);
      EXPECT_TRUE(rows[0] == shown(text)) << rows[0].size();
      EXPECT_EQ(rows[1], shown(Null{}));
      EXPECT_EQ(rows[2], shown("corto"));
      session_->execute("DROP TABLE textos");
    }
  }
}

TEST_P(OdbcRows, NoCharacterIsCutBetweenPieces) {
  session_->execute(std::string("CREATE TEMPORARY TABLE notas (nota ") + GetParam().longText + ")");
  for (std::size_t before = 32763; before <= 32769; ++before) {
    for (const char* const character : {"x", "ñ", "€", "🍕"}) {
      SCOPED_TRACE(std::to_string(before) + " before " + character);
      for (const char* const after : {"", "fin"}) {
        const std::string text = std::string(before, 'x') + character + after;
        session_->execute("DELETE FROM notas");
        session_->execute("INSERT INTO notas VALUES (" + quoted(text) + ")");
        const std::string read = scalar(*session_, "SELECT nota FROM notas").toText();
        EXPECT_TRUE(read == text) << read.size() << " bytes instead of " << text.size();
      }
    }
  }
}

TEST_P(OdbcRows, LongBytesAreWholeToo) {
  session_->execute(std::string("CREATE TEMPORARY TABLE fotos (foto ") + GetParam().longBytes + ")");
  for (const std::size_t size : {0U, 1U, 32767U, 32768U, 32769U, 65536U, 200'000U}) {
    SCOPED_TRACE(size);
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) bytes.push_back(static_cast<char>(i % 251));
    session_->execute("DELETE FROM fotos");
    session_->execute("INSERT INTO fotos VALUES (" + session_->literal(bytes, data::FieldType::LongVarBinary) + ")");
    const Variant read = scalar(*session_, "SELECT foto FROM fotos");
    ASSERT_NE(read.getIf<std::string>(), nullptr);
    EXPECT_TRUE(*read.getIf<std::string>() == bytes);
  }
}

TEST_P(OdbcRows, NullIsNotTheLongValueBeforeIt) {
  const std::string type = GetParam().longText;
  session_->execute("CREATE TEMPORARY TABLE notas (i INTEGER, a " + type + ", n INTEGER, b " + type + ")");
  session_->execute("INSERT INTO notas VALUES (1, 'uno', 10, NULL), (2, NULL, NULL, 'dos'), (3, '', 30, '')");
  const std::vector<std::string> expected[] = {{shown("uno"), shown(Null{}), shown("")},
                                               {shown(Null{}), shown("dos"), shown("")}};
  const char* const columns[] = {"a", "b"};
  for (std::size_t i = 0; i < 2; ++i) {
    SCOPED_TRACE(columns[i]);
    const std::string sql = std::string("SELECT ") + columns[i] + ", n, a, i, b FROM notas ORDER BY i";
    EXPECT_EQ(remaining(*session_->execute(sql).cursor), expected[i]);
    const auto held = session_->execute(sql);
    scalar(*session_, "SELECT 1");
    EXPECT_EQ(remaining(*held.cursor), expected[i]);
  }
}

INSTANTIATE_TEST_SUITE_P(Engines, OdbcRows, testing::ValuesIn(kEngines),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

}  // namespace
}  // namespace qvn::test
