// What holds on a cluster of three nodes only; scripts/sales starts it and runs this program.
#include <gtest/gtest.h>

#include "qvn/core/consecutive.h"
#include "qvn/data/connection_string.h"
#include "qvn/data/drivers/built_in.h"
#include "qvn/host/unit_of_work.h"
#include "tests/support/error_of.h"
#include "tests/support/mysql_server.h"
#include "tests/support/provider_error_of.h"

namespace qvn::test {
namespace {

namespace number = data::provider_number;

data::ConnectionPtr connect(const std::string& connectionString) {
  auto connection = data::Connection::create();
  connection->Open(connectionString);
  return connection;
}

std::string node(int i) { return serverVariable(("QVN_CLUSTER_" + std::to_string(i)).c_str()); }

data::ConnectionPtr overOdbc(int i) {
  const data::ConnectionString native(node(i));
  const std::string server = *native.value({"SERVER"});
  const std::size_t colon = server.find(':');
  std::string odbc = "Driver=MariaDB Unicode;SERVER=" + server.substr(0, colon) + ";PORT=" + server.substr(colon + 1);
  for (const std::string_view name : {"UID", "PWD", "DATABASE"}) {
    odbc.append(";").append(name).append("=").append(native.value({name}).value_or(""));
  }
  return connect(odbc);
}

class Cluster : public testing::Test {
 protected:
  static void SetUpTestSuite() { data::registerBuiltInDrivers(); }
  Cluster() {
    first_->Execute("CREATE OR REPLACE TABLE cuenta (id INT PRIMARY KEY, n INT) ENGINE=InnoDB");
    first_->Execute("INSERT INTO cuenta VALUES (1, 0)");
    // What one node stores may reach the others a moment later; this one waits for it.
    second_->Execute("SET SESSION wsrep_sync_wait = 15");
  }
  std::string stored() { return second_->Execute("SELECT n FROM cuenta")->Fields(0).Value().toText(); }

  data::ConnectionPtr first_ = connect(node(1));
  data::ConnectionPtr second_ = connect(node(2));
};

TEST_F(Cluster, OnlyTheSafeDrawIsThere) {
  EXPECT_TRUE(first_->IsClustered());
  host::QueryPtr query;
  EXPECT_EQ(errorNumber([&] { core::TraeSiguiente("nuevo", first_, {}, query); }), number::kNotSupported);
  EXPECT_EQ(errorNumber([&] { core::TraeSiguiente("nuevo", overOdbc(2), {}, query); }), number::kNotSupported);
  first_->Execute("DELETE FROM consec WHERE dato = 'nuevo'");
  std::int32_t expected = 0;
  for (const auto& station : {first_, second_, overOdbc(3), first_, overOdbc(1), second_}) {
    EXPECT_EQ(core::TraeSiguienteSeguro("nuevo", station), ++expected);
  }
}

TEST_F(Cluster, TheLaterOfTwoNodesIsTakenBackAndMayRunAgain) {
  int runs = 0;
  host::UnitOfWork(*second_).run([&] {
    second_->Execute("UPDATE cuenta SET n = n + 1 WHERE id = 1");
    if (++runs == 1) first_->Execute("UPDATE cuenta SET n = n + 10 WHERE id = 1");
  });
  EXPECT_EQ(runs, 2);
  EXPECT_EQ(stored(), "11");
}

TEST_F(Cluster, WithoutAUnitTheLaterOneIsToldOfADeadlock) {
  second_->Execute("BEGIN");
  second_->Execute("UPDATE cuenta SET n = n + 1 WHERE id = 1");
  first_->Execute("UPDATE cuenta SET n = n + 10 WHERE id = 1");
  const auto error = providerError([&] { second_->Execute("COMMIT"); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->errors().front().nativeError, 1213);
  EXPECT_EQ(error->errors().front().sqlState, "40001");
  EXPECT_EQ(stored(), "10");
}

// The password was changed on one node only, by hand.
TEST_F(Cluster, ANodeThatRefusesTheUserIsPassedOver) {
  first_->Execute("CREATE OR REPLACE USER qvn_otra@'%' IDENTIFIED BY 'buena'");
  first_->Execute("SET SESSION wsrep_on = OFF");
  first_->Execute("ALTER USER qvn_otra@'%' IDENTIFIED BY 'distinta'");
  first_->Execute("SET SESSION wsrep_on = ON");
  const std::string login = ";DATABASE=;UID=qvn_otra;PWD=buena";
  EXPECT_EQ(errorNumber([&] { connect(node(1) + login); }), number::kLoginRefused);
  const std::string all = serverVariable("QVN_CLUSTER");
  EXPECT_EQ(connect(all + login)->Execute("SELECT @@wsrep_node_name")->Fields(0).Value().toText(), "nodo2");
  const auto error = providerError([&] { connect(all + ";DATABASE=;UID=nadie;PWD=nada"); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->errors().size(), 3u);
  EXPECT_EQ(error->number(), number::kLoginRefused);
}

}  // namespace
}  // namespace qvn::test
