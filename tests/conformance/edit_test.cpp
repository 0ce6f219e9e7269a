// Editing rows through recordsets, whatever the engine.
#include "tests/conformance/conformance.h"

namespace qvn::test {
namespace {

namespace number = data::provider_number;

class EditConformance : public Conformance {
 protected:
  void SetUp() override {
    Conformance::SetUp();
    createProducts();
    connection_->setStatementObserver([this](std::string_view sql) { statements_.emplace_back(sql); });
  }
  static constexpr std::string_view kAll = "SELECT * FROM prods ORDER BY articulo";
  std::vector<std::string> statements_;
};

TEST_P(EditConformance, UpdateWritesOnlyWhatWasSet) {
  const auto rows = openForEditing(kAll);
  rows->Fields("nombre").setValue("O'Higgins \\ \"½\" ñ");
  EXPECT_EQ(rows->Fields("nombre").Value().toText(), "O'Higgins \\ \"½\" ñ");
  EXPECT_EQ(rows->editMode(), data::EditMode::InProgress);
  rows->Update();
  EXPECT_EQ(rows->editMode(), data::EditMode::None);
  ASSERT_EQ(statements_.size(), 2u);
  EXPECT_EQ(statements_[1].find("precio1"), std::string::npos) << statements_[1];
  EXPECT_EQ(scalar("SELECT nombre FROM prods WHERE articulo = 'A1'"), "O'Higgins \\ \"½\" ñ");
  EXPECT_EQ(rows->Fields("nombre").Value().toText(), "O'Higgins \\ \"½\" ñ");
}

TEST_P(EditConformance, MovingSavesAndCancelDrops) {
  const auto rows = openForEditing(kAll);
  rows->Fields("precio1").setValue(9.75);
  rows->MoveNext();
  EXPECT_EQ(scalar("SELECT precio1 FROM prods WHERE articulo = 'A1'"), "9.75");
  rows->Fields("precio1").setValue(3);
  rows->CancelUpdate();
  EXPECT_TRUE(rows->Fields("precio1").Value().isNull());
  rows->MoveNext();
  EXPECT_EQ(scalar("SELECT precio1 FROM prods WHERE articulo = 'B2'"), "(null)");
}

TEST_P(EditConformance, AddNewInsertsTheFieldsThatWereSet) {
  const auto rows = openForEditing(kAll);
  rows->AddNew();
  EXPECT_TRUE(rows->Fields("nombre").Value().isEmpty());
  rows->Fields("articulo").setValue("D4");
  rows->Fields("existencia").setValue(12);
  rows->Update();
  EXPECT_EQ(rows->RecordCount(), 4);
  EXPECT_EQ(rows->Fields("articulo").Value().toText(), "D4");
  EXPECT_EQ(scalar("SELECT existencia FROM prods WHERE articulo = 'D4'"), "12");
  EXPECT_EQ(scalar("SELECT nombre FROM prods WHERE articulo = 'D4'"), "(null)");
  rows->AddNew();
  rows->Fields("articulo").setValue("D4");
  EXPECT_EQ(errorNumber([&] { rows->Update(); }), number::kIntegrityViolation);
  EXPECT_EQ(rows->editMode(), data::EditMode::Add);
  rows->CancelUpdate();
  EXPECT_EQ(scalar("SELECT COUNT(*) FROM prods"), "4");
}

TEST_P(EditConformance, AddNewReadsTheAutomaticNumber) {
  connection_->Execute("CREATE TABLE lotes (id " + GetParam().forms.autoNumber + ", lote VARCHAR(10))");
  connection_->Execute("INSERT INTO lotes (lote) VALUES ('L1')");
  const auto rows = openForEditing("SELECT * FROM lotes");
  rows->AddNew();
  rows->Fields("lote").setValue("L2");
  rows->Update();
  EXPECT_EQ(rows->Fields("id").Value().toLong(), 2);
}

TEST_P(EditConformance, DeleteLeavesNoCurrentRow) {
  const auto rows = openForEditing(kAll);
  rows->MoveNext();
  rows->Delete();
  EXPECT_EQ(errorNumber([&] { (void)rows->Fields(0).Value(); }), number::kNoCurrentRecord);
  EXPECT_EQ(errorNumber([&] { rows->Delete(); }), number::kNoCurrentRecord);
  rows->MoveNext();
  EXPECT_EQ(rows->Fields(0).Value().toText(), "C3");
  EXPECT_EQ(rows->RecordCount(), 2);
  EXPECT_EQ(scalar("SELECT COUNT(*) FROM prods"), "2");
}

TEST_P(EditConformance, AnotherSessionsChangeIsNotOverwritten) {
  struct Row {
    const char* why;
    const char* meanwhile;
  };
  static constexpr Row kRows[] = {
      {"the same field was changed", "UPDATE prods SET existencia = 55 WHERE articulo = 'A1'"},
      {"it became NULL", "UPDATE prods SET existencia = NULL WHERE articulo = 'A1'"},
      {"the row was deleted", "DELETE FROM prods WHERE articulo = 'A1'"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    connection_->Execute("DELETE FROM prods WHERE articulo = 'A1'");
    connection_->Execute("INSERT INTO prods VALUES ('A1', 'Tornillo', 1.5, 100)");
    const auto rows = openForEditing(kAll);
    database_->connect()->Execute(row.meanwhile);
    rows->Fields("existencia").setValue(99);
    EXPECT_EQ(errorNumber([&] { rows->Update(); }), number::kRowChanged);
    EXPECT_EQ(scalar("SELECT COUNT(*) FROM prods WHERE existencia = 99"), "0");
    rows->CancelUpdate();
  }
}

TEST_P(EditConformance, ARowHeldByAnotherSessionIsToldFromALostConnection) {
  connection_->setCommandTimeout(std::chrono::seconds{2});
  const auto other = database_->connect();
  other->Execute(GetParam().forms.beginWriting);
  other->Execute("UPDATE prods SET existencia = 55 WHERE articulo = 'A1'");
  const auto rows = openForEditing(kAll);
  rows->Fields("existencia").setValue(99);
  EXPECT_EQ(errorNumber([&] { rows->Update(); }), number::kUnspecified);
  ASSERT_EQ(connection_->Errors().size(), 1u);
  EXPECT_EQ(connection_->Errors()[0].number, number::kUnspecified);
  EXPECT_EQ(connection_->Errors()[0].nativeError, data::kRowHeldNativeError);
  const std::int32_t plain =
      errorNumber([&] { connection_->Execute("UPDATE prods SET existencia = 1 WHERE articulo = 'A1'"); });
  EXPECT_TRUE(plain == number::kTimeout || plain == number::kStatementRefused) << plain;
  other->Execute("ROLLBACK");
  rows->Update();
  EXPECT_EQ(scalar("SELECT existencia FROM prods WHERE articulo = 'A1'"), "99");
}

TEST_P(EditConformance, AnotherFieldsChangeDoesNotCollide) {
  const auto rows = openForEditing(kAll);
  database_->connect()->Execute("UPDATE prods SET nombre = 'Otro' WHERE articulo = 'A1'");
  rows->Fields("existencia").setValue(99);
  rows->Update();
  EXPECT_EQ(scalar("SELECT nombre FROM prods WHERE existencia = 99"), "Otro");
}

TEST_P(EditConformance, RefusesWhatCannotBeSaved) {
  connection_->Execute("CREATE TABLE sinclave (a INTEGER)");
  connection_->Execute("INSERT INTO sinclave VALUES (1)");
  struct Row {
    const char* why;
    const char* sql;
    const char* field;
    data::LockType lock;
  };
  static constexpr Row kRows[] = {
      {"read-only", "SELECT * FROM prods", "existencia", data::LockType::ReadOnly},
      {"an expression", "SELECT articulo, existencia + 1 AS e FROM prods", "e", data::LockType::Pessimistic},
      {"the key is not read", "SELECT existencia FROM prods", "existencia", data::LockType::Pessimistic},
      {"no primary key", "SELECT a FROM sinclave", "a", data::LockType::Pessimistic},
      {"two tables", "SELECT articulo, existencia, a FROM prods, sinclave", "existencia", data::LockType::Pessimistic},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    const auto rows = open(row.sql, data::CursorLocation::Client, data::CursorType::Keyset, row.lock);
    const auto edit = [&] {
      rows->Fields(row.field).setValue(5);
      rows->Update();
    };
    EXPECT_EQ(errorNumber(edit), number::kNotSupported);
  }
  EXPECT_EQ(scalar("SELECT existencia FROM prods WHERE articulo = 'A1'"), "100");
}

TEST_P(EditConformance, StreamedRowsCanBeEdited) {
  const auto rows = open(kAll, data::CursorLocation::Server, data::CursorType::ForwardOnly, data::LockType::Optimistic);
  for (int i = 0; !rows->Eof(); rows->MoveNext(), ++i) {
    rows->Fields("existencia").setValue(i);
    rows->Update();
    EXPECT_EQ(rows->Fields("existencia").Value().toLong(), i);
  }
  EXPECT_EQ(scalar("SELECT SUM(existencia) FROM prods"), "3");
}

INSTANTIATE_TEST_SUITE_P(Engines, EditConformance, testing::ValuesIn(engines()), engineName);

}  // namespace
}  // namespace qvn::test
