// Access files: which are opened, what is read from them, and that nothing is written.
#include "qvn/data/drivers/odbc/access_file.h"

#include <cstdlib>

#include "tests/data/drivers/odbc/odbc_fixture.h"

namespace qvn::test {
namespace {

namespace number = data::provider_number;
constexpr const char* kPasswordName = "Jet OLEDB:Database Password";

class AccessFile : public testing::Test {
 protected:
  /// A new file with the tables of the script.
  std::string make(const std::string& password = {}) {
    std::string file = folder_.path("tienda" + std::to_string(++count_) + ".mdb");
    const std::string command = "python3 " QVN_JET_SCRIPT " '" + file + "' '" + password + "'";
    if (std::system(command.c_str()) != 0) ADD_FAILURE() << command;
    return file;
  }
  /// A file of these bytes.
  std::string write(const std::string& bytes) {
    std::string file = folder_.path("otro" + std::to_string(++count_) + ".mdb");
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
  }
  static std::unique_ptr<data::Session> openByDriver(const std::string& file, const std::string& more = {}) {
    const data::ConnectionString parameters("Driver=MDBTools;DBQ=" + file + more);
    return data::odbcDriver()->connect({parameters, {}, {}, {}});
  }
  static std::unique_ptr<data::Session> open(const std::string& file, const std::string& more = {},
                                             const data::PropertyBag& properties = {}) {
    const data::ConnectionString parameters("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + file + more);
    return data::odbcDriver()->connect({parameters, {}, {}, properties});
  }

  ScratchFolder folder_;
  int count_ = 0;
};

TEST_F(AccessFile, ThePasswordIsThatOfTheFile) {
  struct Row {
    const char* stored;
    const char* given;
    std::int32_t expected;
  };
  static constexpr Row kRows[] = {
      {"", "", 0},
      {"", "sobra", 0},
      {"KXTRBAMV", "KXTRBAMV", 0},
      {"KXTRBAMV", "kxtrbamv", number::kLoginRefused},
      {"KXTRBAMV", "KXTRBAM", number::kLoginRefused},
      {"KXTRBAMV", "KXTRBAMVX", number::kLoginRefused},
      {"KXTRBAMV", "", number::kLoginRefused},
      {"veinte-letras-señal€", "veinte-letras-señal€", 0},
      {"veinte-letras-señal€", "veinte-letras-señal", number::kLoginRefused},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(std::string(row.stored) + " / " + row.given);
    const std::string file = make(row.stored);
    const std::string inText = std::string(";") + kPasswordName + "=" + row.given;
    EXPECT_EQ(errorNumber([&] { open(file, inText); }), row.expected);
    EXPECT_EQ(errorNumber([&] { openByDriver(file, inText); }), row.expected);
    data::PropertyBag properties;
    properties.set(kPasswordName, row.given);
    EXPECT_EQ(errorNumber([&] { open(file, std::string(";") + kPasswordName + "=nada", properties); }), row.expected);
    const std::string page = bytesOf(file).substr(0, data::odbc::kAccessHeaderSize);
    EXPECT_EQ(data::odbc::accessFilePassword(page), row.stored);
  }
}

TEST_F(AccessFile, TellsWhyItWasNotOpened) {
  const std::string whole = bytesOf(make("secreto-1"));
  ASSERT_GT(whole.size(), data::odbc::kAccessHeaderSize);
  struct Row {
    const char* why;
    std::string file;
    std::int32_t number;
    const char* words;
  };
  const char* const kNoAccess = "no es un archivo de Access";
  const Row rows[] = {
      {"missing", folder_.path("no_hay.mdb"), number::kUnspecified, "no existe"},
      {"a folder", folder_.path(""), number::kUnspecified, kNoAccess},
      {"empty", write(""), number::kUnspecified, kNoAccess},
      {"another kind of file", write(std::string(5000, 'x')), number::kUnspecified, kNoAccess},
      {"the name alone", write(whole.substr(0, 20)), number::kUnspecified, kNoAccess},
      {"a header that ends too soon", write(whole.substr(0, 255)), number::kUnspecified, kNoAccess},
      {"another password", write(whole), number::kLoginRefused, kPasswordName},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    for (const std::string& words : {std::string(row.words), row.file}) {
      expectFailures("ODBC", {{.cause = row.file, .number = row.number, .words = words}},
                     [](const std::string& file) { open(file, std::string(";") + kPasswordName + "=secreto-2"); });
    }
  }
}

TEST_F(AccessFile, BackslashesInItsPathJoinFolders) {
  std::filesystem::create_directory(folder_.path("datos"));
  std::filesystem::rename(make(), folder_.path("datos/año.mdb"));
  EXPECT_EQ(scalar(*open(folder_.path("datos\\año.mdb")), "SELECT articulo FROM prods").toText(), "A1");
}

TEST_F(AccessFile, ColumnsHaveTheirTypesAndValues) {
  const auto session = open(make());
  std::string note;
  for (int i = 0; i < 200; ++i) note += "ñandú ";
  struct Row {
    const char* column;
    Variant expected;
    Variant inSecondRow = Null{};
  };
  const Row rows[] = {
      {"articulo", "A1", "B2"},
      {"nombre", "Piñón de 12€"},
      {"precio1", 80.25},
      {"existencia", std::int32_t{100}},
      {"costo", *Decimal::fromText("12.3456")},  // the reader tells no currency
      {"alta", Date::fromCivil(2012, 3, 7, {10, 42, 7})},
      {"activo", true, false},
      {"nivel", std::uint8_t{200}},
      {"lugar", std::int16_t{-5}},
      {"peso", 1.5},  // nor a single
      {"nota", note},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.column);
    const auto result = session->execute(std::string("SELECT ") + row.column + " FROM prods");
    EXPECT_EQ(remaining(*result.cursor), (std::vector{shown(row.expected), shown(row.inSecondRow)}));
  }
}

TEST_F(AccessFile, RowsOfManyPages) {
  const auto session = open(make());
  EXPECT_EQ(remaining(*session->execute("SELECT texto FROM muchos").cursor).size(), 1000U);
  EXPECT_EQ(scalar(*session, "SELECT texto FROM muchos WHERE numero = 999").toText(), "renglón 999");
}

TEST_F(AccessFile, NothingIsWritten) {
  const std::string file = make();
  const std::string before = bytesOf(file);
  const auto session = open(file);
  const auto byDriver = openByDriver(file);
  for (const char* const sql :
       {"INSERT INTO prods (articulo) VALUES ('C3')", "update prods set nivel = 1", "DELETE FROM prods",
        "DROP TABLE prods", " -- SELECT\nCREATE TABLE t (i INTEGER)", "/* SELECT */ DELETE FROM prods", "SET a = 1"}) {
    EXPECT_EQ(errorNumber([&] { session->execute(sql); }), number::kNotSupported) << sql;
    EXPECT_EQ(errorNumber([&] { byDriver->execute(sql); }), number::kNotSupported) << sql;
  }
  EXPECT_TRUE(bytesOf(file) == before);
  EXPECT_EQ(remaining(*session->execute("\n select articulo FROM prods").cursor).size(), 2U);
}

TEST_F(AccessFile, WhatTheReaderCannotReadIsRefused) {
  const auto session = open(make());
  for (const char* const sql :
       {"SELECT SUM(existencia) FROM prods", "SELECT a.numero FROM muchos a JOIN prods b ON 1 = 1", "SELECT"}) {
    EXPECT_EQ(errorNumber([&] { session->execute(sql); }), number::kStatementRefused) << sql;
    EXPECT_EQ(scalar(*session, "SELECT articulo FROM prods").toText(), "A1");
  }
}

}  // namespace
}  // namespace qvn::test
