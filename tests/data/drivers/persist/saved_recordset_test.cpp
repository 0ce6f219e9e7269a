#include <gtest/gtest.h>

#include "qvn/data/connection.h"
#include "qvn/data/drivers/sqlite/sqlite_driver.h"
#include "qvn/data/provider_error.h"
#include "tests/data/drivers/persist/given_rows.h"
#include "tests/support/scratch_folder.h"

namespace qvn::data {
namespace {

// A foreign file: other prefixes, the column order by number, a type on the column itself, pending changes.
constexpr std::string_view kForeign = R"(<xml xmlns:a='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'
 xmlns:b='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882' xmlns:c='urn:schemas-microsoft-com:rowset' xmlns:d='#RowsetSchema'>
<a:Schema id='RowsetSchema'><a:ElementType name='row' content='eltOnly'>
<a:AttributeType name='c1' c:name='nombre del cliente' c:number='2' b:type='string'/>
<a:AttributeType name='id' c:number='1' c:basetable='clientes' c:keycolumn='true'><a:datatype b:type='i4'/></a:AttributeType>
<a:AttributeType name='saldo' c:number='3'><a:datatype b:type='fixed.14.4'/></a:AttributeType>
<a:extends type='c:rowbase'/></a:ElementType></a:Schema>
<c:data><d:row id='1' c1='Mu&#xF1;oz &amp; c&#xA;a' saldo='-0.0001'/>
<c:update><c:original><d:row id='2' c1='viejo' saldo='5'/></c:original><d:row c1='nuevo' c:forcenull='saldo'/></c:update>
<c:delete><d:row id='3'/></c:delete><c:insert><d:row id='4' c1=''/></c:insert></c:data></xml>)";

class SavedRecordset : public ::testing::Test {
 protected:
  void SetUp() override {
    registerDriver(persistDriver());
    registerDriver(sqliteDriver());
    setRecordsetStore(persistStore());
    connection_ = Connection::create();
    connection_->Open("Provider=SQLite;Data Source=:memory:");
  }
  void TearDown() override { setRecordsetStore(nullptr); }

  [[nodiscard]] std::string path(const char* name = "r.xml") const { return folder_.path(name); }
  RecordsetPtr query(std::string_view sql, CursorLocation location = CursorLocation::Client) const {
    auto rows = std::make_shared<Recordset>();
    rows->setCursorLocation(location);
    rows->Open(sql, connection_);
    return rows;
  }
  RecordsetPtr load() const {
    auto rows = std::make_shared<Recordset>();
    rows->setCursorLocation(CursorLocation::Client);
    rows->Open(path(), "Provider=MSPersist;");
    return rows;
  }

  test::ScratchFolder folder_;
  ConnectionPtr connection_;
};

TEST_F(SavedRecordset, ReadsForeignFilesWithTheirPendingChanges) {
  folder_.put(kForeign);
  const RecordsetPtr rows = load();
  ASSERT_EQ(rows->RecordCount(), 3);
  EXPECT_EQ(rows->Fields(0).Name(), "id");
  EXPECT_EQ(rows->Fields("nombre del cliente").Value().toText(), "Muñoz & c\na");
  EXPECT_EQ(rows->Fields("saldo").Value().toCurrency().scaled(), -1);
  rows->MoveNext();
  EXPECT_EQ(rows->Fields("id").Value().toLong(), 2);
  EXPECT_EQ(rows->Fields("nombre del cliente").Value().toText(), "nuevo");
  EXPECT_TRUE(rows->Fields("saldo").Value().isNull());
  rows->MoveNext();
  EXPECT_EQ(rows->Fields("id").Value().toLong(), 4);
  EXPECT_EQ(rows->Fields("nombre del cliente").Value().toText(), "");
}

TEST_F(SavedRecordset, RefusesAFileCutAnywhere) {
  for (std::size_t size = 0; size < kForeign.size(); ++size) {
    SCOPED_TRACE(size);
    folder_.put(kForeign.substr(0, size));
    EXPECT_THROW(load(), ProviderError);
  }
}

TEST_F(SavedRecordset, RefusesWhatIsNoSavedRecordset) {
  const auto replaced = [](std::string_view what, std::string_view with) {
    std::string text(kForeign);
    return text.replace(text.find(what), what.size(), with);
  };
  const std::string texts[] = {
      "",
      "hola",
      "<otro/>",
      "<xml/>",
      "<!DOCTYPE xml [<!ENTITY a 'x'>]>" + std::string(kForeign),
      replaced("id='4'", "id='4.5'"),
      replaced("id='4'", "id='2147483648'"),
      replaced("id='4'", "otro='4'"),
      replaced("b:type='i4'", "b:type='nada'"),
      replaced("c:number='1'", "c:number='uno'"),
  };
  for (const std::string& text : texts) {
    SCOPED_TRACE(text.substr(0, 40));
    folder_.put(text);
    const auto refusal = test::refusalOf([&] { load(); });
    EXPECT_EQ(refusal.number, provider_number::kUnspecified);
    EXPECT_NE(refusal.words.find("r.xml"), std::string::npos) << refusal.words;
  }
}

TEST_F(SavedRecordset, ComesBackAsItWasSaved) {
  connection_->Execute(
      "CREATE TABLE t (id INTEGER PRIMARY KEY, [un nombre] NVARCHAR(40), ID2 TEXT, m MONEY, k NUMERIC(20,5), f DOUBLE,"
      " d DATETIME, b BOOLEAN, x BLOB)");
  connection_->Execute(
      "INSERT INTO t VALUES (1, 'a' || char(10,9,13) || ' ''\"<&ñ', '', 12.5, '-123456789012345.00001', 0.1,"
      " '1850-03-07 06:00:00.25', 1, x'00ff10'), (2, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL)");
  const RecordsetPtr saved = query("SELECT * FROM t ORDER BY id");
  saved->MoveNext();
  saved->Save(path());
  EXPECT_EQ(saved->AbsolutePosition(), 2);
  EXPECT_EQ(folder_.fileCount(), 1);
  saved->MoveFirst();
  const RecordsetPtr again = load();
  ASSERT_EQ(again->RecordCount(), 2);
  ASSERT_EQ(again->FieldCount(), saved->FieldCount());
  for (std::size_t i = 0; i < saved->FieldCount(); ++i) {
    SCOPED_TRACE(saved->Fields(i).Name());
    EXPECT_EQ(again->Fields(i).Name(), saved->Fields(i).Name());
    EXPECT_EQ(again->Fields(i).Type(), saved->Fields(i).Type());
    EXPECT_EQ(again->Fields(i).DefinedSize(), saved->Fields(i).DefinedSize());
    EXPECT_EQ(again->Fields(i).Value().type(), saved->Fields(i).Value().type());
    EXPECT_TRUE(equals(again->Fields(i).Value(), saved->Fields(i).Value()));
  }
  again->MoveNext();
  for (std::size_t i = 1; i < again->FieldCount(); ++i) EXPECT_TRUE(again->Fields(i).Value().isNull());
}

TEST_F(SavedRecordset, SavesTheRestOfAStream) {
  const RecordsetPtr rows = query("SELECT 1 AS n UNION ALL SELECT 2 UNION ALL SELECT 3", CursorLocation::Server);
  rows->MoveNext();
  rows->Save(path());
  EXPECT_TRUE(rows->Eof());
  const RecordsetPtr again = load();
  ASSERT_EQ(again->RecordCount(), 2);
  EXPECT_EQ(again->Fields("n").Value().toLong(), 2);
}

TEST_F(SavedRecordset, HoldsTenMegabytesInAField) {
  query("SELECT replace(hex(zeroblob(2500000)), '00', 'ñandú') AS l")->Save(path());
  const std::string text = load()->Fields("l").Value().toText();
  ASSERT_EQ(text.size(), 17'500'000u);
  EXPECT_EQ(text.substr(text.size() - 7), "ñandú");
}

TEST_F(SavedRecordset, RefusesToSave) {
  folder_.put("otro");
  struct Row {
    const char* why;
    const char* sql;
    const char* name;
    std::int32_t number;
  };
  constexpr Row kRows[] = {
      {"the file exists", "SELECT 1", "r.xml", error_number::kFileExists},
      {"no such folder", "SELECT 1", "nada/r.xml", error_number::kPathNotFound},
      {"a control character", "SELECT char(1) AS x", "n.xml", error_number::kTypeMismatch},
      {"a byte that is no character", "SELECT CAST(x'C3' AS TEXT) AS x", "n.xml", error_number::kTypeMismatch},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(test::refusalOf([&] { query(row.sql)->Save(path(row.name)); }).number, row.number);
    EXPECT_EQ(folder_.fileCount(), 1);
  }
  setRecordsetStore(nullptr);
  EXPECT_THROW(query("SELECT 1")->Save(path("n.xml")), ProviderError);
}

}  // namespace
}  // namespace qvn::data
