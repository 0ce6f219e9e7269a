// Repair of tables whose index is really damaged on the disk.
#include "qvn/mysqladmin/table_repair.h"

#include <vector>

#include "qvn/dialogs/scripted_dialogs.h"
#include "tests/mysqladmin/shop_server.h"
#include "tests/support/error_of.h"

namespace qvn::mysqladmin {
namespace {

class RepairTest : public test::ShopServer {
 protected:
  RepairTest() {
    clock_ = test::FixedClock({Date::fromCivil(2026, 3, 7), Date::fromCivil(2026, 3, 8)});
    execute(
        "CREATE TABLE reparando (tabla VARCHAR(40) PRIMARY KEY, reparando INT, fechainicio VARCHAR(20), "
        "fechafin VARCHAR(20)) ENGINE=MyISAM");
    execute("CREATE TABLE clients (id INT PRIMARY KEY, nombre VARCHAR(40), KEY (nombre)) ENGINE=MyISAM");
    execute("INSERT INTO clients SELECT seq, CONCAT('cliente ', seq) FROM seq_1_to_2000");
  }

  // Overwrites the middle of the index, and gives the engine's words about it.
  std::string damage(const std::string& table, const std::string& query) {
    const std::string index = scalar("SELECT @@datadir") + "tienda/" + table + ".MYI";
    execute("FLUSH TABLES " + table);
    {
      std::fstream file(index, std::ios::in | std::ios::out | std::ios::binary);
      file.seekp(static_cast<std::streamoff>(std::filesystem::file_size(index)) / 2);
      const std::string waste(static_cast<std::size_t>(std::filesystem::file_size(index)) / 2, '\xA5');
      file.write(waste.data(), static_cast<std::streamsize>(waste.size()));
    }
    try {
      execute(query);
    } catch (const RuntimeError& error) {
      return error.description();
    }
    ADD_FAILURE() << "the engine did not see the damage";
    return {};
  }

  std::vector<std::string> statements(const std::function<void()>& act) {
    std::vector<std::string> seen;
    connection_->setStatementObserver([&](std::string_view sql) { seen.emplace_back(sql); });
    act();
    connection_->setStatementObserver(nullptr);
    return seen;
  }

  [[nodiscard]] std::string bookkeeping() const {
    return scalar("SELECT CONCAT_WS('|', tabla, reparando, fechainicio, fechafin) FROM reparando");
  }

  dialogs::ScriptedDialogs dialogs_;
};

TEST_F(RepairTest, MakesADamagedTableReadableAgain) {
  const std::string query = "SELECT * FROM clients FORCE INDEX (nombre) ORDER BY nombre";
  const std::string words = damage("clients", "UPDATE clients SET nombre = CONCAT(nombre, 'x')");
  ASSERT_NE(words.find("clients.MYI"), std::string::npos) << words;
  const auto seen =
      statements([&] { EXPECT_EQ(ReparaTabla(words, connection_, dialogs_, clock_), RepairOutcome::Repaired); });
  EXPECT_EQ(seen, (std::vector<std::string>{
                      "SELECT * FROM reparando WHERE tabla = 'clients'",
                      "INSERT INTO reparando (tabla, reparando) VALUES ('clients', 1)",
                      "UPDATE reparando SET fechainicio = '07-03-2026 00:00:00' WHERE tabla = 'clients'",
                      "REPAIR TABLE clients",
                      "FLUSH TABLES",
                      "UPDATE reparando SET fechafin = '08-03-2026 00:00:00' WHERE tabla = 'clients'",
                      "ANALYZE TABLE clients",
                      "UPDATE reparando SET tabla = 'clients', reparando = 0 WHERE tabla = 'clients'",
                  }));
  using Shown = dialogs::ScriptedDialogs::Shown;
  ASSERT_EQ(dialogs_.shown().size(), 2U);
  EXPECT_EQ(dialogs_.shown()[0], (Shown{"progress", "Reparando: clients"}));
  EXPECT_TRUE(dialogs_.shown()[1].text.starts_with("Reparando: clients\r\nstatus ")) << dialogs_.shown()[1].text;
  EXPECT_EQ(bookkeeping(), "clients|0|07-03-2026 00:00:00|08-03-2026 00:00:00");
  EXPECT_EQ(scalar("SELECT COUNT(*) FROM (" + query + ") x"), "2000");
  EXPECT_EQ(scalar("CHECK TABLE clients", 3), "OK");
}

TEST_F(RepairTest, AStationThatRepairsIsLeftAlone) {
  execute("INSERT INTO reparando VALUES ('clients', 1, 'a', 'b')");
  const auto seen = statements([&] {
    EXPECT_EQ(ReparaTabla(" './tienda/clients.MYI'", connection_, dialogs_, clock_), RepairOutcome::UnderWay);
  });
  EXPECT_EQ(seen.size(), 1U);
  EXPECT_TRUE(dialogs_.shown().empty());
  EXPECT_EQ(bookkeeping(), "clients|1|a|b");
}

TEST_F(RepairTest, AFlagOfZeroIsNotRaisedMeanwhile) {
  execute("INSERT INTO reparando VALUES ('clients', 0, 'a', 'b')");
  const auto seen = statements([&] { ReparaTabla("Table 'clients.MYI'", connection_, dialogs_, clock_); });
  ASSERT_EQ(seen.size(), 7U);
  EXPECT_TRUE(seen[1].starts_with("UPDATE reparando SET fechainicio")) << seen[1];
}

TEST_F(RepairTest, TheBookkeepingItselfIsRepairedFirst) {
  execute("INSERT INTO reparando SELECT CONCAT('tabla ', seq), 0, '', '' FROM seq_1_to_500");
  const std::string words = damage("reparando", "SELECT * FROM reparando WHERE tabla = 'tabla 499'");
  const auto seen = statements([&] { ReparaTabla(words, connection_, dialogs_, clock_); });
  ASSERT_GT(seen.size(), 3U);
  EXPECT_EQ(seen[0], "REPAIR TABLE reparando");
  EXPECT_EQ(seen[1], "FLUSH TABLES");
  EXPECT_EQ(scalar("SELECT COUNT(*) FROM reparando"), "501");
}

TEST_F(RepairTest, AnErrorOfTheAnalysisAsksForTheOfflineTool) {
  EXPECT_EQ(ReparaTabla("'nada.MYI'", connection_, dialogs_, clock_), RepairOutcome::NeedsOfflineTool);
  ASSERT_EQ(dialogs_.shown().size(), 2U);
  EXPECT_EQ(dialogs_.shown()[1].text, "Reparando: nada\r\n\r\nEs necesario reparar con el comando myisamchk");
  EXPECT_EQ(scalar("SELECT reparando FROM reparando WHERE tabla = 'nada'"), "0");
}

TEST_F(RepairTest, WordsWithoutAnIndexFailAtTheServer) {
  EXPECT_EQ(test::errorNumber([&] { ReparaTabla("nada", connection_, dialogs_, clock_); }),
            data::provider_number::kStatementRefused);
  EXPECT_EQ(scalar("SELECT CONCAT('[', tabla, ']', reparando) FROM reparando"), "[]1");
}

TEST(DamagedTable, IsTheLastPartOfTheIndexFilesName) {
  struct Row {
    std::string_view text;
    std::string_view name;
  };
  for (const Row& row :
       {Row{"Incorrect key file for table 'clients.MYI'; try to repair it", "clients"},
        Row{"Index for table './shop/clients.MYI' is corrupt", "clients"}, Row{"'.\\shop\\clients.myi'", "clients"},
        Row{"a b.MYI", ""}, Row{".MYI", ""}, Row{"nada", ""}, Row{"", ""}}) {
    EXPECT_EQ(damagedTable(row.text), row.name) << row.text;
  }
}

}  // namespace
}  // namespace qvn::mysqladmin
