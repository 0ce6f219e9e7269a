// The account that checks the stations finds what is wrong, and nothing where all is well.
#include "bench/sales/books.h"

#include <gtest/gtest.h>

#include <sstream>

#include "bench/sales/shop_tables.h"
#include "bench/sales/station.h"
#include "qvn/data/drivers/built_in.h"
#include "tests/support/databases.h"

namespace qvn::sales {
namespace {

class SalesBooks : public testing::Test {
 protected:
  SalesBooks() {
    createShop(*connection_, {.customers = 3, .products = 2, .orders = 2});
    StationOptions options;
    options.connectionString = database_->connectionString();
    options.duration = std::chrono::seconds(1);
    std::ostringstream log;
    runStation(options, log);
    log_ = log.str();
  }

  [[nodiscard]] std::vector<std::string> differences(const std::string& log) const {
    Books books;
    std::istringstream lines(log);
    books.read(lines);
    return books.differences(*connection_);
  }
  [[nodiscard]] std::size_t storedSales() const {
    Books books;
    std::istringstream lines(log_);
    books.read(lines);
    return books.stored();
  }
  // The first line that tells `told`, with its end.
  [[nodiscard]] std::string lineOf(char told) const {
    const std::size_t from = ("\n" + log_).find(std::string("\n") + told + " ");
    return log_.substr(from, log_.find('\n', from) + 1 - from);
  }

  std::unique_ptr<test::TestDatabase> database_ = [] {
    data::registerBuiltInDrivers();
    return test::mysqlDatabase();
  }();
  data::ConnectionPtr connection_ = database_->connect();
  std::string log_;
};

TEST_F(SalesBooks, AreEvenAfterAnHonestDay) {
  EXPECT_GT(storedSales(), 3u);
  EXPECT_EQ(differences(log_), std::vector<std::string>());
  // A line that the end of its station cut off.
  EXPECT_EQ(differences(log_ + "S 7 8"), std::vector<std::string>());
}

TEST_F(SalesBooks, FindWhatTheDatabaseHoldsWrongly) {
  static constexpr const char* kFaults[] = {
      "DELETE FROM cobranza ORDER BY cobranza LIMIT 1",
      "INSERT INTO cobranza VALUES (999999, 'C-1', 0, 1, 'S')",
      "UPDATE cobranza SET saldo = saldo + 0.01 ORDER BY cobranza LIMIT 1",
      "UPDATE cobranza SET estado = IF(estado = 'S', 'P', 'S') ORDER BY cobranza LIMIT 1",
      "DELETE FROM cobdet ORDER BY id LIMIT 1",
      "UPDATE caja SET por_apli = por_apli - 0.01 ORDER BY abono LIMIT 1",
      "DELETE FROM caja ORDER BY abono LIMIT 1",
      "UPDATE clients SET saldo = saldo - 0.01 WHERE cliente = 'C-2'",
      "UPDATE prods SET existencia = existencia + 1 WHERE articulo = 'A-1'",
      "UPDATE prods SET por_surt = por_surt + 1 WHERE articulo = 'A-2'",
      "UPDATE pedpar SET surtido = surtido + 1 WHERE id_salida = 3",
      "UPDATE pedidos SET estado = 'CE' WHERE pedido = 1",
      "UPDATE consec SET consec = consec - 1 WHERE dato = 'cobranza'",
      "UPDATE consec SET consec = consec + 1 WHERE dato = 'caja'",
  };
  for (const char* const fault : kFaults) {
    connection_->Execute("BEGIN");
    connection_->Execute(fault);
    EXPECT_FALSE(differences(log_).empty()) << fault;
    connection_->Execute("ROLLBACK");
  }
}

TEST_F(SalesBooks, FindWhatTheStationsWereToldWrongly) {
  EXPECT_FALSE(differences(log_ + lineOf('D')).empty()) << "a number given twice";
  EXPECT_FALSE(differences(log_ + "S 888888 888888 1 100 100 50 50 1 1 0  .\n").empty()) << "a sale that was lost";
  EXPECT_FALSE(differences(log_ + "what is this\n").empty());
}

TEST_F(SalesBooks, ASaleOfUnknownOutcomeIsThereAsAWholeOrNotAtAll) {
  EXPECT_EQ(differences(log_ + "U 888888 888888 1 100 100 50 50 1 1 0  .\n"), std::vector<std::string>());
  std::string unknown = log_;
  const std::string stored = lineOf('S');
  unknown.replace(unknown.find(stored), 1, "U");
  EXPECT_EQ(differences(unknown), std::vector<std::string>());
  connection_->Execute("DELETE FROM caja ORDER BY abono LIMIT 1");
  EXPECT_FALSE(differences(unknown).empty());
}

}  // namespace
}  // namespace qvn::sales
