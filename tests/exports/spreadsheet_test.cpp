// Workbooks, read back by an independent reader.
#include "qvn/exports/spreadsheet.h"

#include <gtest/gtest.h>

#include "tests/data/drivers/persist/given_rows.h"
#include "tests/exports/shop_rows.h"
#include "tests/support/error_of.h"
#include "tests/support/read_workbook.h"
#include "tests/support/scratch_folder.h"

namespace qvn::exports {
namespace {

using data::FieldType;

constexpr auto kReplace = SpreadsheetExport::OnExisting::Replace;

class Spreadsheet : public testing::Test {
 protected:
  // One sheet in a file of its own.
  void write(const data::RecordsetPtr& rows, const SheetSettings& settings) {
    excel_.Open(path_, kReplace);
    EXPECT_TRUE(excel_.AddSheet(rows, settings));
    excel_.Close();
    EXPECT_EQ(folder_.fileCount(), 1);
  }
  std::string sheet(const data::RecordsetPtr& rows, const SheetSettings& settings = {}) {
    write(rows, settings);
    return test::readWorkbook(path_);
  }

  test::ScratchFolder folder_;
  test::ScratchFolder other_;
  std::string path_ = folder_.path("ventas.xlsx");
  SpreadsheetExport excel_;
};

TEST_F(Spreadsheet, HasHeadingsFormatsAndTotals) {
  const auto rows = test::rowsOf(
      "SELECT 'Muñoz' AS cliente, 7 AS cobranza, 5220.5 AS saldo UNION ALL SELECT NULL, 1234567, 0.25 UNION ALL "
      "SELECT '007', 9007199254740993, 1e6");
  const SheetSettings settings{
      .name = "Saldos",
      .columns = {{.field = "CLIENTE", .title = "Cliente & Cía", .width = 30},
                  {.field = "saldo", .title = "Saldo", .format = "#,##0.00", .isTotalled = true}}};
  EXPECT_EQ(sheet(rows, settings),
            "sheet Saldos frozen=1 filter=A1:C4 widths=30.7,18.3,14.3\n"
            "A1|text|@ bold|Cliente & Cía\n"
            "B1|text|@ bold|cobranza\n"
            "C1|text|@ bold|Saldo\n"
            "A2|text|@|Muñoz\n"
            "B2|number|0|7\n"
            "C2|number|#,##0.00|5220.5\n"
            "B3|number|0|1234567\n"
            "C3|number|#,##0.00|0.25\n"
            "A4|text|@|007\n"
            "B4|text|@|9007199254740993\n"
            "C4|number|#,##0.00|1000000\n"
            "A5|text|@ bold|Total\n"
            "C5|=SUM(C2:C4)|#,##0.00 bold|1005220.75\n");
  EXPECT_EQ(excel_.Report().rows, 3);
  EXPECT_EQ(excel_.Report().forcedTexts, 1);
}

TEST_F(Spreadsheet, FormatsFollowTheTypesOfFields) {
  const std::vector<data::Column> columns = {
      {.name = "entero", .type = FieldType::Integer},
      {.name = "moneda", .type = FieldType::Currency},
      {.name = "decimal", .type = FieldType::Numeric, .definedSize = 19, .precision = 18, .scale = 3},
      {.name = "doble", .type = FieldType::Double},
      {.name = "fecha", .type = FieldType::DbDate},
      {.name = "momento", .type = FieldType::DbTimeStamp},
      {.name = "hora", .type = FieldType::DbTime},
      {.name = "si", .type = FieldType::Boolean},
      {.name = "bytes", .type = FieldType::VarBinary, .definedSize = 2}};
  const Date moment = Date::fromCivil(2026, 2, 9, {18, 0, 0});
  const test::GivenRows given(columns, {{Variant(7), Currency::fromScaled(12'345), *Decimal::fromText("1.500"), 0.1,
                                         Date::fromCivil(2026, 2, 9), moment, Date(0.75), true, "\x01\xFF"}});
  EXPECT_EQ(sheet(test::saveAndLoad(given, other_.path("tipos.xml")), {.isFrozen = false, .hasFilter = false}),
            "sheet Hoja1 frozen=no filter=no widths=8.3,8.3,9.3,8.3,12.3,21.3,10.3,11.3,8.3\n"
            "A1|text|@ bold|entero\nB1|text|@ bold|moneda\nC1|text|@ bold|decimal\nD1|text|@ bold|doble\n"
            "E1|text|@ bold|fecha\nF1|text|@ bold|momento\nG1|text|@ bold|hora\nH1|text|@ bold|si\n"
            "I1|text|@ bold|bytes\n"
            "A2|number|0|7\n"
            "B2|number|#,##0.00##|1.2345\n"
            "C2|number|#,##0.000|1.5\n"
            "D2|number|General|0.1\n"
            "E2|number|dd/mm/yyyy|46062\n"
            "F2|number|dd/mm/yyyy hh:mm:ss|46062.75\n"
            "G2|number|hh:mm:ss|0.75\n"
            "H2|boolean|General|1\n"
            "I2|text|@|0x01FF\n");
}

TEST_F(Spreadsheet, AFractionShowsWhereTheTypePromisesNone) {
  const test::GivenRows given({{.name = "n", .type = FieldType::Numeric, .definedSize = 9, .precision = 9}},
                              {{*Decimal::fromText("10.5")}, {*Decimal::fromText("10")}});
  const std::string text = sheet(test::saveAndLoad(given, other_.path("n.xml")));
  EXPECT_NE(text.find("A2|number|General|10.5\nA3|number|0|10\n"), std::string::npos) << text;
}

TEST_F(Spreadsheet, GoesOnInANextSheetAndTotalsThemAll) {
  const SheetSettings settings{
      .name = "O'Hara", .columns = {{.field = "n", .format = "0", .isTotalled = true}}, .mostRows = 4};
  // Headings, two rows and room for totals.
  EXPECT_EQ(sheet(test::numbersTo(4), settings),
            "sheet O'Hara frozen=1 filter=A1:A3 widths=8.3\nA1|text|@ bold|n\nA2|number|0|1\nA3|number|0|2\n"
            "sheet O'Hara (2) frozen=1 filter=A1:A3 widths=8.3\nA1|text|@ bold|n\nA2|number|0|3\nA3|number|0|4\n"
            "A4|=SUM('O''Hara'!A2:A3,A2:A3)|0 bold|10\n");
  EXPECT_EQ(excel_.Report().sheets, 2);
}

TEST_F(Spreadsheet, FillsASheetToItsLastRow) {
  struct Row {
    int rows;
    std::int64_t sheets;
  };
  for (const Row& row : {Row{3, 1}, Row{4, 2}, Row{6, 2}, Row{7, 3}, Row{0, 1}}) {
    SCOPED_TRACE(row.rows);
    const auto rows = row.rows == 0 ? test::noRows() : test::numbersTo(row.rows);
    write(rows, {.mostRows = 4});
    EXPECT_EQ(excel_.Report().sheets, row.sheets);
    EXPECT_EQ(excel_.Report().rows, row.rows);
  }
}

TEST_F(Spreadsheet, HasAllSheetsThatWereAddedFromWhereTheirRecordsetsStood) {
  const auto rows = test::numbersTo(3);
  rows->MoveNext();
  excel_.Open(path_);
  EXPECT_TRUE(excel_.AddSheet(rows, {.name = "Uno"}));
  EXPECT_TRUE(rows->Eof());
  EXPECT_TRUE(excel_.AddSheet(test::noRows()));
  EXPECT_FALSE(std::filesystem::exists(path_));
  excel_.Close();
  EXPECT_EQ(test::readWorkbook(path_),
            "sheet Uno frozen=1 filter=A1:A3 widths=8.3\nA1|text|@ bold|n\nA2|number|0|2\nA3|number|0|3\n"
            "sheet Hoja2 frozen=1 filter=A1 widths=8.3\nA1|text|@ bold|n\n");
}

TEST_F(Spreadsheet, ReadersGetTheTextsAsTheyWere) {
  const std::vector<std::string> texts = {
      "=1+1",     "_x0041_ _x00_ _x005F_x0041_", "_x0041_x0042_", "_x", "<a href=\"x\">&amp;</a>", "  x  ",
      "uno\ndos", "Ñandú 漢字 \U0001F600",
  };
  std::vector<std::vector<Variant>> values;
  std::string expected;
  for (const std::string& text : texts) {
    values.push_back({Variant(text)});
    expected += "A" + std::to_string(values.size() + 1) + "|text|@|" + text + "\n";
  }
  expected.replace(expected.find("uno\ndos"), 7, "uno\\ndos");
  const test::GivenRows given({{.name = "t", .type = FieldType::VarWChar, .definedSize = 40}}, values);
  const std::string text =
      sheet(test::saveAndLoad(given, other_.path("t.xml")), {.columns = {{.field = "t", .width = 9}}});
  EXPECT_EQ(text, "sheet Hoja1 frozen=1 filter=A1:A9 widths=9.7\nA1|text|@ bold|t\n" + expected);
}

TEST_F(Spreadsheet, TheObserverLearnsOfTheEndAndCancels) {
  struct Row {
    int rows;
    std::int64_t wanted;
    std::vector<std::int64_t> seen;
  };
  for (const Row& row : {Row{1001, 1002, {1000, 1001}}, Row{3500, 3000, {1000, 2000, 3000}}}) {
    std::vector<std::int64_t> seen;
    excel_.Open(path_, kReplace);
    const bool isComplete = excel_.AddSheet(test::numbersTo(row.rows), {}, [&](std::int64_t rows) {
      seen.push_back(rows);
      return rows < row.wanted;
    });
    EXPECT_EQ(isComplete, row.rows < row.wanted);
    EXPECT_EQ(seen, row.seen);
  }
  EXPECT_EQ(folder_.fileCount(), 0);
  EXPECT_EQ(test::errorNumber([&] { excel_.Close(); }), error_number::kBadFileName);
}

TEST_F(Spreadsheet, RefusesWhatNoSheetHas) {
  struct Row {
    const char* why;
    SheetSettings settings;
    std::int32_t number;
  };
  const Row rows[] = {
      {"a name that cannot be", {.name = "a/b"}, 5},
      {"a column of no field", {.columns = {{.field = "otro"}}}, 3265},
      {"a negative width", {.columns = {{.field = "n", .width = -1}}}, 5},
      {"a width beyond the widest", {.columns = {{.field = "n", .width = 256}}}, 5},
      {"no room for a row", {.mostRows = 2}, 5},
      {"more rows than there are", {.mostRows = kMostSheetRows + 1}, 5},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    excel_.Open(path_);
    EXPECT_EQ(test::errorNumber([&] { excel_.AddSheet(test::numbersTo(1), row.settings); }), row.number);
    EXPECT_EQ(folder_.fileCount(), 0);
  }
  EXPECT_EQ(test::errorNumber([&] { excel_.AddSheet(nullptr); }), error_number::kBadFileName);
  excel_.Open(path_);
  EXPECT_EQ(test::errorNumber([&] { excel_.AddSheet(nullptr); }), error_number::kObjectNotSet);
  excel_.Open(path_);
  EXPECT_EQ(test::errorNumber([&] { excel_.Close(); }), error_number::kInvalidCall);
  EXPECT_EQ(folder_.fileCount(), 0);
}

}  // namespace
}  // namespace qvn::exports
