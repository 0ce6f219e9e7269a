// Column types and their values, whatever the engine.
#include "tests/conformance/conformance.h"
#include "tests/support/column_types.h"

namespace qvn::test {
namespace {

using data::FieldType;

using TypesConformance = Conformance;

template <typename Type>
Type ownOr(const std::map<std::string, Type>& own, const std::string& declaration, Type usual) {
  const auto found = own.find(declaration);
  return found == own.end() ? usual : found->second;
}

TEST_P(TypesConformance, DeclaredTypesDecideFieldsAndValues) {
  struct Row {
    const char* declaration;
    const char* literal;
    FieldType type;
    VariantType value;
    const char* text;
  };
  static constexpr Row kRows[] = {
      {"INTEGER", "-2147483648", FieldType::Integer, VariantType::Long, "-2147483648"},
      {"SMALLINT", "32767", FieldType::SmallInt, VariantType::Integer, "32767"},
      {"BIGINT", "9223372036854775807", FieldType::BigInt, VariantType::LongLong, "9223372036854775807"},
      {"DOUBLE PRECISION", "0.1", FieldType::Double, VariantType::Double, "0.1"},
      {"DOUBLE PRECISION", "2", FieldType::Double, VariantType::Double, "2"},
      {"DECIMAL(12,2)", "1234.5", FieldType::Numeric, VariantType::Decimal, "1234.5"},
      {"DECIMAL(12,2)", "-7", FieldType::Numeric, VariantType::Decimal, "-7"},
      {"VARCHAR(40)", "'ñandú'", FieldType::VarWChar, VariantType::String, "ñandú"},
      {"VARCHAR(40)", "''", FieldType::VarWChar, VariantType::String, ""},
      {"TEXT", "'007'", FieldType::LongVarWChar, VariantType::String, "007"},
      {"DATE", "'2012-03-07'", FieldType::Date, VariantType::Date, "03/07/2012"},
      {"DATETIME", "'2012-03-07 10:42:07'", FieldType::DbTimeStamp, VariantType::Date, "03/07/2012 10:42:07"},
      {"TIME", "'23:59:59'", FieldType::DbTime, VariantType::Date, "23:59:59"},
  };
  int at = 0;
  for (const Row& row : kRows) {
    SCOPED_TRACE(std::string(row.declaration) + " " + row.literal);
    const std::string table = "t" + std::to_string(++at);
    connection_->Execute("CREATE TABLE " + table + " (id INTEGER NOT NULL PRIMARY KEY, v " +
                         GetParam().typeName(row.declaration) + ")");
    insert(table, {std::string("1, ") + row.literal, "2, NULL"});
    const auto rows = open("SELECT v FROM " + table + " ORDER BY id");
    EXPECT_EQ(rows->Fields(0).Type(), ownOr(GetParam().forms.fieldTypes, row.declaration, row.type));
    EXPECT_EQ(rows->Fields(0).Value().type(), ownOr(GetParam().forms.valueTypes, row.declaration, row.value));
    EXPECT_EQ(rows->Fields(0).Value().toText(), row.text);
    rows->MoveNext();
    EXPECT_TRUE(rows->Fields(0).Value().isNull());
  }
}

TEST_P(TypesConformance, ValuesSurviveWritingThroughARecordset) {
  connection_->Execute(
      "CREATE TABLE v (id INTEGER NOT NULL PRIMARY KEY, d DOUBLE PRECISION, n DECIMAL(18,4), t VARCHAR(50), f " +
      GetParam().typeName("DATETIME") + ", b " + GetParam().typeName("BLOB") + ")");
  std::string manyBytes = allBytes() + "'\\";
  while (manyBytes.size() < 100'000) manyBytes += manyBytes;
  const std::pair<const char*, Variant> kValues[] = {
      {"d", GetParam().forms.roundsDoubles ? 0.3 : 0.1 + 0.2},
      {"d", GetParam().forms.roundsDoubles ? -1.5e300 : -1.7976931348623157e308},
      {"n", *Decimal::fromText("1234567890.1234")},
      {"t", "O'Higgins \\' \" ; -- ñ 🧾"},
      {"t", ""},
      {"t", "\\"},
      {"t", "\\'"},
      {"t", "'); DROP TABLE v; -- "},
      {"t", "\"comillas\" y `acentos` [c] {d} ? %s /* */"},
      {"t", "línea\r\notra\x1A\ttab €"},
      {"f", Date::fromCivil(1899, 12, 1, {23, 59, 58})},
      {"f", Date::fromCivil(2012, 3, 7, {10, 42, 7})},
      {"b", allBytes()},
      {"b", manyBytes},
  };
  int id = 0;
  for (const auto& [field, value] : kValues) {
    SCOPED_TRACE(std::string(field) + " " + std::to_string(++id));
    const auto rows = openForEditing("SELECT * FROM v");
    rows->AddNew();
    rows->Fields("id").setValue(id);
    rows->Fields(field).setValue(value);
    rows->Update();
    const auto back = open("SELECT " + std::string(field) + " FROM v WHERE id = " + std::to_string(id));
    if (const auto* bytes = value.getIf<std::string>()) {
      EXPECT_EQ(*back->Fields(0).Value().getIf<std::string>(), *bytes);
    } else {
      EXPECT_TRUE(equals(back->Fields(0).Value(), value)) << back->Fields(0).Value().toText();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Engines, TypesConformance, testing::ValuesIn(engines()), engineName);

}  // namespace
}  // namespace qvn::test
