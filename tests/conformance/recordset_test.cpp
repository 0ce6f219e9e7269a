// Moving, counting and reading, whatever the engine.
#include "tests/conformance/conformance.h"

namespace qvn::test {
namespace {

using data::CursorLocation;
using data::CursorType;
using data::LockType;
namespace number = data::provider_number;

class RecordsetConformance : public Conformance {
 protected:
  void SetUp() override {
    Conformance::SetUp();
    createProducts();
  }
};

constexpr std::string_view kAll = "SELECT articulo, nombre, precio1 FROM prods ORDER BY articulo";

std::string joined(data::Recordset& rows) {
  std::string text;
  for (; !rows.Eof(); rows.MoveNext()) text += rows.Fields("ARTICULO").Value().toText() + " ";
  return text;
}

TEST_P(RecordsetConformance, KindsDifferInCountAndMoves) {
  struct Row {
    const char* why;
    CursorLocation location;
    CursorType type;
    bool holds;
  };
  static constexpr Row kRows[] = {
      {"server, forward-only: streams", CursorLocation::Server, CursorType::ForwardOnly, false},
      {"server, keyset", CursorLocation::Server, CursorType::Keyset, true},
      {"client, keyset", CursorLocation::Client, CursorType::Keyset, true},
      {"client, forward-only: still a copy", CursorLocation::Client, CursorType::ForwardOnly, true},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    const auto rows = open(kAll, row.location, row.type);
    EXPECT_EQ(rows->RecordCount(), row.holds ? 3 : -1);
    EXPECT_EQ(joined(*rows), "A1 B2 C3 ");
    const std::int32_t refusal = row.holds ? 0 : number::kNotSupported;
    EXPECT_EQ(errorNumber([&] { rows->MoveFirst(); }), refusal);
    EXPECT_EQ(joined(*rows), row.holds ? "A1 B2 C3 " : "");
  }
}

TEST_P(RecordsetConformance, HeldRowsMoveBothWays) {
  const auto rows = open(kAll, CursorLocation::Client, CursorType::Keyset);
  rows->MoveLast();
  EXPECT_EQ(rows->AbsolutePosition(), 3);
  rows->MovePrevious();
  EXPECT_EQ(rows->Fields(0).Value().toText(), "B2");
  rows->MovePrevious();
  rows->MovePrevious();
  EXPECT_TRUE(rows->Bof());
  EXPECT_EQ(errorNumber([&] { rows->MovePrevious(); }), number::kNoCurrentRecord);
  EXPECT_EQ(errorNumber([&] { (void)rows->Fields(0).Value(); }), number::kNoCurrentRecord);
  rows->MoveNext();
  EXPECT_EQ(rows->Fields(0).Value().toText(), "A1");
}

TEST_P(RecordsetConformance, EndOfRowsIsSafe) {
  for (const CursorLocation location : {CursorLocation::Server, CursorLocation::Client}) {
    SCOPED_TRACE(static_cast<int>(location));
    const auto none = open("SELECT articulo FROM prods WHERE articulo = 'ZZ'", location);
    EXPECT_TRUE(none->Eof());
    EXPECT_TRUE(none->Bof());
    EXPECT_EQ(errorNumber([&] { none->MoveNext(); }), number::kNoCurrentRecord);
    EXPECT_EQ(errorNumber([&] { (void)none->Fields("articulo").Value(); }), number::kNoCurrentRecord);
    const auto one = open("SELECT articulo FROM prods WHERE articulo = 'A1'", location);
    EXPECT_FALSE(one->Bof());
    one->MoveNext();
    EXPECT_TRUE(one->Eof());
    EXPECT_FALSE(one->Bof());
  }
}

TEST_P(RecordsetConformance, FieldsByNameAndPosition) {
  const auto rows = open("SELECT articulo AS Clave, precio1 AS precio FROM prods ORDER BY articulo");
  ASSERT_EQ(rows->FieldCount(), 2u);
  EXPECT_EQ(rows->Fields(0).Name(), GetParam().forms.upperCasesNames ? "CLAVE" : "Clave");
  EXPECT_EQ(rows->Fields("cLAVE").Value().toText(), "A1");
  EXPECT_EQ(rows->Fields("PRECIO").Value().toDouble(), 1.5);
  EXPECT_EQ(errorNumber([&] { rows->Fields("nada"); }), number::kNoSuchItem);
  EXPECT_EQ(errorNumber([&] { rows->Fields(2); }), number::kNoSuchItem);
  EXPECT_EQ(errorNumber([&] { rows->Fields(-1); }), number::kNoSuchItem);
  rows->MoveNext();
  EXPECT_TRUE(rows->Fields("precio").Value().isNull());
}

TEST_P(RecordsetConformance, TwoOpenRecordsetsAndWritesBetweenRows) {
  std::vector<std::string> many;
  for (int i = 0; i < 2000; ++i) many.push_back("'N" + std::to_string(10000 + i) + "', 1");
  insert("prods (articulo, existencia)", many);
  const auto outer = open("SELECT articulo FROM prods WHERE articulo LIKE 'N%' ORDER BY articulo");
  const auto inner = open("SELECT articulo FROM prods WHERE articulo LIKE 'N%' ORDER BY articulo DESC");
  int rows = 0;
  for (; !outer->Eof(); outer->MoveNext(), inner->MoveNext(), ++rows) {
    ASSERT_FALSE(inner->Eof());
    ASSERT_EQ(outer->Fields(0).Value().toText(), "N" + std::to_string(10000 + rows));
    ASSERT_EQ(inner->Fields(0).Value().toText(), "N" + std::to_string(11999 - rows));
    if (rows % 500 == 0) connection_->Execute("UPDATE prods SET existencia = 9 WHERE articulo = 'A1'");
  }
  EXPECT_EQ(rows, 2000);
  EXPECT_TRUE(inner->Eof());
  EXPECT_EQ(scalar("SELECT existencia FROM prods WHERE articulo = 'A1'"), "9");
}

TEST_P(RecordsetConformance, CurrentRowSurvivesAnotherStatement) {
  const auto rows = open(kAll);
  connection_->Execute("DELETE FROM prods");
  EXPECT_EQ(rows->Fields("nombre").Value().toText(), "Tornillo");
}

TEST_P(RecordsetConformance, TextArrivesWhole) {
  const std::string emoji = "ñ € 🧾 Ñandú";
  EXPECT_EQ(scalar(select("'" + emoji + "'")), emoji);
  std::string longText;
  while (longText.size() < 10'000'000) longText += "ñandú 'O'' \\ 0123456789\r\n";
  connection_->Execute("CREATE TABLE notas (id INTEGER NOT NULL PRIMARY KEY, nota " + GetParam().typeName("TEXT") +
                       ")");
  const auto rows = openForEditing("SELECT * FROM notas");
  rows->AddNew();
  rows->Fields("id").setValue(1);
  rows->Fields("nota").setValue(longText);
  rows->Update();
  EXPECT_TRUE(scalar("SELECT nota FROM notas") == longText);
}

TEST_P(RecordsetConformance, ExecuteTellsWhatItChanged) {
  std::int64_t changed = -1;
  const auto none = connection_->Execute("UPDATE prods SET existencia = existencia + 1 WHERE existencia > 0", changed);
  EXPECT_EQ(changed, 2);
  EXPECT_EQ(none->State(), data::ObjectState::Closed);
  EXPECT_EQ(errorNumber([&] { (void)none->Eof(); }), number::kObjectClosed);
  // A row that already holds the value counts as well.
  connection_->Execute("UPDATE prods SET existencia = 7 WHERE articulo = 'C3'");
  connection_->Execute("UPDATE prods SET existencia = 7 WHERE articulo = 'C3'", changed);
  EXPECT_EQ(changed, 1);
  connection_->Execute("INSERT INTO prods (articulo) SELECT nombre FROM prods WHERE articulo <> 'A1'", changed);
  EXPECT_EQ(changed, 2);
  connection_->Execute("DELETE FROM prods WHERE existencia = 99", changed);
  EXPECT_EQ(changed, 0);
  EXPECT_EQ(connection_->Execute(kAll)->State(), data::ObjectState::Open);
}

TEST_P(RecordsetConformance, ClosesInAnyOrder) {
  const auto streamed = open(kAll);
  const auto held = open(kAll, CursorLocation::Client);
  connection_->Close();
  EXPECT_EQ(connection_->State(), data::ObjectState::Closed);
  for (const auto& rows : {streamed, held}) {
    EXPECT_EQ(rows->State(), data::ObjectState::Closed);
    EXPECT_EQ(errorNumber([&] { rows->MoveNext(); }), number::kObjectClosed);
    rows->Close();
  }
  EXPECT_EQ(errorNumber([&] { connection_->Execute(select("1")); }), number::kObjectClosed);
  connection_->Open();
  const auto last = open(kAll);
  EXPECT_EQ(errorNumber([&] { connection_->Open(); }), number::kObjectOpen);
  EXPECT_EQ(errorNumber([&] { last->Open(kAll, connection_); }), number::kObjectOpen);
  // The recordset keeps the session alive when the host lets go of the connection first.
  connection_.reset();
  EXPECT_EQ(joined(*last), "A1 B2 C3 ");
}

INSTANTIATE_TEST_SUITE_P(Engines, RecordsetConformance, testing::ValuesIn(engines()), engineName);

}  // namespace
}  // namespace qvn::test
