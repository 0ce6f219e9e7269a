// Messages by number, session values, the working date and the base currency.
#include "qvn/core/messages.h"

#include <gtest/gtest.h>

#include "qvn/core/session_values.h"
#include "qvn/core/working_date.h"
#include "qvn/dialogs/scripted_dialogs.h"
#include "qvn/rowtext/ws_field.h"
#include "tests/support/error_of.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/test_database.h"

namespace qvn::core {
namespace {

using test::errorNumber;

class Station : public testing::Test {
 protected:
  Station() {
    local_->Execute("CREATE TABLE mensajes (id INTEGER, lenguaje VARCHAR(10), Mensaje VARCHAR(80))");
    local_->Execute(
        "INSERT INTO mensajes VALUES (593, 'ESP01', 'Otro mes'), (594, 'ESP01', 'Otro año'), (593, 'ENG01', 'Month'), "
        "(7, 'ESP01', NULL)");
    local_->Execute("CREATE TABLE usuarios (usuario VARCHAR(20), camfecha BOOLEAN)");
    local_->Execute("INSERT INTO usuarios VALUES ('ana', 1), ('luis', 0), ('eva', NULL)");
    ambiente_->setConexion(local_);
    ambiente_->setConexionLocal(local_);
    ambiente_->setMes(3);
    ambiente_->setEjercicio(2012);
  }
  std::unique_ptr<test::TestDatabase> database_ = test::engines().front().create();
  data::ConnectionPtr local_ = database_->connect();
  std::shared_ptr<host::SimpleAmbiente> ambiente_ = std::make_shared<host::SimpleAmbiente>(local_);
  dialogs::ScriptedDialogs dialogs_;
};

TEST_F(Station, MessagesComeInItsLanguage) {
  EXPECT_EQ(Mensaje(594, ambiente_), "Otro año");
  EXPECT_EQ(ambiente_->Lenguaje(), "ESP01");
  EXPECT_EQ(Mensaje(1, ambiente_), "");
  ambiente_->setLenguaje("ENG01");
  EXPECT_EQ(Mensaje(593, ambiente_), "Month");
  EXPECT_EQ(Mensaje(594, ambiente_), "");
  ambiente_->setLenguaje("  ");
  EXPECT_EQ(errorNumber([&] { Mensaje(7, ambiente_); }), error_number::kInvalidUseOfNull);
  EXPECT_EQ(ambiente_->Lenguaje(), "ESP01");
  local_->Execute("DROP TABLE mensajes");
  EXPECT_EQ(errorNumber([&] { Mensaje(1, ambiente_); }), data::provider_number::kNoSuchTable);
  ambiente_->setConexionLocal(nullptr);
  EXPECT_EQ(errorNumber([&] { Mensaje(1, ambiente_); }), error_number::kObjectNotSet);
}

TEST_F(Station, WorkingDates) {
  struct Row {
    const char* user;
    Date date;
    Variant showsMessages;
    bool expected;
    std::string shown;
  };
  const Row rows[] = {
      {"luis", Date::fromCivil(2012, 3, 15), true, true, ""},
      {"luis", Date::fromCivil(2012, 4, 15), true, false, "Otro mes"},
      {"luis", Date::fromCivil(2011, 3, 15), true, false, "Otro año"},
      {"luis", Date::fromCivil(2011, 4, 15), true, false, "Otro mes"},
      {"luis", Date::fromCivil(2011, 4, 15), false, false, ""},
      {"luis", Date::fromCivil(2011, 4, 15), 1, false, ""},
      {"luis", Date::fromCivil(2011, 4, 15), Null{}, false, ""},
      {"eva", Date::fromCivil(2011, 3, 15), true, false, "Otro año"},
      {"nadie", Date::fromCivil(2012, 4, 1), true, false, "Otro mes"},
      {"ana", Date::fromCivil(1999, 12, 31), true, true, ""},
  };
  std::size_t shown = 0;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.user + row.shown);
    ambiente_->setUsuario(row.user);
    EXPECT_EQ(validaFechaDeTrabajo(row.date, ambiente_, row.showsMessages, dialogs_), row.expected);
    if (!row.shown.empty()) ++shown;
    ASSERT_EQ(dialogs_.shown().size(), shown);
    if (!row.shown.empty()) {
      EXPECT_EQ(dialogs_.shown().back(), (dialogs::ScriptedDialogs::Shown{"message", row.shown}));
    }
  }
  test::FixedClock clock({Date::fromCivil(2012, 3, 31, {10, 42, 7})});
  EXPECT_EQ(FechaDeTrabajo(2012, 2, clock), Date::fromCivil(2012, 3, 2));
  EXPECT_EQ(FechaDeTrabajo(2012, 12, clock), Date::fromCivil(2012, 12, 31));
  EXPECT_EQ(FechaDeTrabajo(2012, 13, clock), Date::fromCivil(2013, 1, 31));
  EXPECT_EQ(errorNumber([&] { FechaDeTrabajo(40000, 1, clock); }), error_number::kOverflow);
  Dormir(250, clock);
  Dormir(-1, clock);
  EXPECT_EQ(clock.slept, (std::vector{std::chrono::milliseconds(250)}));
}

TEST_F(Station, SessionValues) {
  EXPECT_TRUE(GetSessionValue(ambiente_, "caja").isEmpty());
  SetSessionValue(ambiente_, "caja", 7);
  SetSessionValue(ambiente_, "Caja", "otra");
  SetSessionValue(ambiente_, "caja", Null{});
  EXPECT_EQ(ambiente_->Sesion()->Count(), 2);
  EXPECT_TRUE(GetSessionValue(ambiente_, "caja").isNull());
  EXPECT_EQ(GetSessionValue(ambiente_, "Caja").toText(), "otra");
  // A host may have added a name twice: the last one is read, the first one written.
  ambiente_->Sesion()->Add(ObjectPtr(rowtext::newData("caja", 9)));
  EXPECT_EQ(GetSessionValue(ambiente_, "caja").toLong(), 9);
  SetSessionValue(ambiente_, "caja", 8);
  EXPECT_EQ(GetSessionValue(ambiente_, "caja").toLong(), 9);
  ambiente_->Sesion()->Remove(3);
  EXPECT_EQ(GetSessionValue(ambiente_, "caja").toLong(), 8);
  ambiente_->Sesion()->Add("suelto");
  EXPECT_EQ(errorNumber([&] { GetSessionValue(ambiente_, "caja"); }), error_number::kTypeMismatch);
  EXPECT_EQ(errorNumber([] { SetSessionValue(nullptr, "caja", 1); }), error_number::kObjectNotSet);
}

TEST_F(Station, TheBaseCurrencyIsTheFirstOne) {
  local_->Execute("CREATE TABLE monedas (moneda VARCHAR(5), base INTEGER)");
  EXPECT_EQ(mb(local_), "");
  local_->Execute("INSERT INTO monedas VALUES ('USD', 0), ('MXN', 1), ('EUR', 2)");
  EXPECT_EQ(mb(local_), "MXN");
  EXPECT_EQ(errorNumber([] { mb(nullptr); }), error_number::kObjectNotSet);
}

}  // namespace
}  // namespace qvn::core
