// LoadRsFromXML: what is read, how it can be moved in, and what gives nothing.
#include "qvn/core/saved_recordset.h"

#include <gtest/gtest.h>

#include <vector>

#include "qvn/core/recordsets.h"
#include "qvn/data/connection.h"
#include "qvn/data/drivers/built_in.h"
#include "qvn/data/provider_error.h"
#include "tests/support/error_of.h"
#include "tests/support/scratch_folder.h"

namespace qvn::core {
namespace {

using data::CursorLocation;
using data::LockType;
using data::ObjectState;
using data::RecordsetPtr;

// Four rows of which one was changed, one deleted and one inserted after they were read.
constexpr std::string_view kMarked = R"(<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'
 xmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882' xmlns:rs='urn:schemas-microsoft-com:rowset'
 xmlns:z='#RowsetSchema'><s:Schema id='RowsetSchema'><s:ElementType name='row' content='eltOnly' rs:updatable='true'>
<s:AttributeType name='clave' rs:number='1' rs:writeunknown='true'>
<s:datatype dt:type='int' dt:maxLength='4' rs:precision='0' rs:fixedlength='true' rs:maybenull='false'/>
</s:AttributeType><s:AttributeType name='nombre' rs:number='2' rs:nullable='true'>
<s:datatype dt:type='string' rs:dbtype='str' dt:maxLength='40'/></s:AttributeType>
<s:extends type='rs:rowbase'/></s:ElementType></s:Schema>
<rs:data><z:row clave='1' nombre='queda'/>
<rs:update><rs:original><z:row clave='2' nombre='antes'/></rs:original><z:row nombre='después'/></rs:update>
<rs:delete><z:row clave='3' nombre='borrado'/></rs:delete>
<rs:update><rs:original><z:row clave='4' nombre='antes'/></rs:original><z:row rs:forcenull='nombre'/></rs:update>
<rs:insert><z:row clave='5' nombre='nuevo'/><z:row clave='6'/></rs:insert></rs:data></xml>)";

class LoadRsFromXml : public ::testing::Test {
 protected:
  void SetUp() override { data::registerBuiltInDrivers(); }
  // Of the rows in their order; "-" for Null.
  static std::string texts(data::Recordset& rows, std::string_view field) {
    std::string joined;
    for (; !rows.Eof(); rows.MoveNext()) {
      const Variant& value = rows.Fields(field).Value();
      joined.append(value.isNull() ? "-" : value.toText()).append(" ");
    }
    return joined;
  }
  const test::ScratchFolder folder_;
};

TEST_F(LoadRsFromXml, GivesTheRowsWithTheirPendingChangesForReadingOnly) {
  folder_.put(kMarked);
  const RecordsetPtr rows = LoadRsFromXML(folder_.path());
  ASSERT_TRUE(rows);
  EXPECT_EQ(rows->State(), ObjectState::Open);
  EXPECT_EQ(rows->Source(), folder_.path());
  EXPECT_EQ(rows->ActiveConnection()->ConnectionString(), "Provider=MSPersist;");
  EXPECT_EQ(rows->cursorLocation(), CursorLocation::Client);
  EXPECT_EQ(rows->lockType(), LockType::ReadOnly);
  EXPECT_EQ(test::errorNumber([&] { rows->Fields("nombre").setValue("otro"); }), data::provider_number::kNotSupported);
  // The rows are held: the file may change or go, and they move both ways.
  folder_.put("");
  EXPECT_EQ(rows->RecordCount(), 5);
  EXPECT_EQ(rows->AbsolutePosition(), 1);
  EXPECT_EQ(texts(*rows, "CLAVE"), "1 2 4 5 6 ");
  EXPECT_EQ(test::errorNumber([&] { rows->MoveNext(); }), data::provider_number::kNoCurrentRecord);
  rows->MoveFirst();
  EXPECT_EQ(texts(*rows, "nombre"), "queda después - nuevo - ");
  rows->MoveLast();
  EXPECT_EQ(rows->AbsolutePosition(), 5);
  rows->MovePrevious();
  EXPECT_EQ(rows->Fields("clave").Value().toLong(), 5);
  rows->MoveFirst();
  rows->MovePrevious();
  EXPECT_TRUE(rows->Bof());
}

TEST_F(LoadRsFromXml, ReadsWhatARecordsetSaved) {
  const auto connection = data::Connection::create();
  connection->Open("Provider=SQLite;Data Source=:memory:");
  connection->Execute("CREATE TABLE clients (cliente INTEGER PRIMARY KEY, nombre NVARCHAR(40))");
  connection->Execute("INSERT INTO clients VALUES (1, 'Ana'), (2, 'Luis'), (3, NULL)");
  const RecordsetPtr edited = RecordWrite("SELECT * FROM clients ORDER BY cliente", connection);
  edited->Delete();
  edited->MoveNext();
  edited->Fields("nombre").setValue("Muñoz & Cía.");
  edited->Save(folder_.path(".") + "\\clientes.xml");
  const RecordsetPtr rows = LoadRsFromXML(folder_.path("clientes.xml"));
  ASSERT_TRUE(rows);
  EXPECT_EQ(texts(*rows, "nombre"), "Muñoz & Cía. - ");
  CreaRecordSetEnCliente("SELECT * FROM clients WHERE cliente = 0", connection)->Save(folder_.path("vacio.xml"));
  const RecordsetPtr none = LoadRsFromXML(folder_.path("vacio.xml"));
  ASSERT_TRUE(none);
  EXPECT_TRUE(none->Bof() && none->Eof());
  EXPECT_EQ(none->RecordCount(), 0);
  EXPECT_EQ(none->FieldCount(), 2u);
}

TEST_F(LoadRsFromXml, NeverRaisesForAFileWithADamagedByte) {
  constexpr char kDamages[] = {'\0', '<', '&', '\'', '9', '\xFF'};
  std::string text(kMarked);
  int refused = 0;
  for (std::size_t at = 0; at < text.size(); at += 3) {
    SCOPED_TRACE(at);
    for (const char damage : kDamages) {
      text[at] = damage;
      folder_.put(text);
      EXPECT_NO_THROW(refused += LoadRsFromXML(folder_.path()) == nullptr ? 1 : 0);
    }
    text[at] = kMarked[at];
  }
  EXPECT_GT(refused, static_cast<int>(text.size()));
}

TEST_F(LoadRsFromXml, GivesNothingForWhatIsNoSavedRecordset) {
  folder_.put("<no es un conjunto de registros>");
  for (const std::string& path :
       {std::string(), std::string("/no/existe.xml"), folder_.path(), folder_.path("."), folder_.path() + "/r.xml",
        folder_.path("\xFF\xFE"), std::string("a\0b", 3), folder_.path(std::string(5000, 'n')), std::string(";=\"'")}) {
    SCOPED_TRACE(path.substr(0, 80));
    EXPECT_EQ(LoadRsFromXML(path), nullptr);
  }
}

}  // namespace
}  // namespace qvn::core
