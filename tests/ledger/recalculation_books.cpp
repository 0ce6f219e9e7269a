#include "tests/ledger/recalculation_books.h"

#include <array>
#include <random>

#include "qvn/ledger/receivables.h"
#include "tests/support/error_of.h"

namespace qvn::test {
namespace {

struct Side {
  std::string documents;
  std::string movements;
  std::string owners;
  std::string owner;
};

const Side kCustomers{"cobranza", "cobdet", "clients", "cliente"};
const Side kSuppliers{"cuenxpag", "cuenxpdet", "proveed", "proveedor"};

class Chance {
 public:
  explicit Chance(unsigned seed) : engine_(seed) {}
  // The same on every machine, unlike the standard distributions.
  unsigned below(unsigned limit) { return static_cast<unsigned>(engine_() % limit); }
  template <std::size_t count>
  std::string oneOf(const std::array<const char*, count>& choices) {
    return choices[below(count)];
  }

 private:
  std::mt19937 engine_;
};

// NADIE is in no row of the owners; the documents of SINTC have no exchange rate.
constexpr std::array<const char*, 8> kOwners = {"'A1'",    "'B2'",    "'ÑU-1'", "'O Higgins'",
                                                "'NADIE'", "'SINTC'", "NULL",   "'c3'"};
constexpr std::array<const char*, 6> kRates = {"1", "1", "17.05", "16.9", "0.051", "NULL"};
constexpr std::array<const char*, 5> kBalances = {"0", "NULL", "100", "0.1", "-5.25"};
constexpr std::array<const char*, 5> kStates = {"'P'", "'S'", "'s'", "' '", "NULL"};
constexpr std::array<const char*, 9> kAmounts = {"0.1",   "0.2",    "0.3",       "99.99", "0.125",
                                                 "0.005", "1500.5", "123456.78", "33.37"};
constexpr std::array<const char*, 7> kKinds = {"'C'", "'C'", "'C'", "'A'", "'A'", "'A'", "'X'"};

std::string newMovement(const Side& side, int number, int document, const std::string& kind,
                        const std::string& amount) {
  return "INSERT INTO " + side.movements + " VALUES (" + std::to_string(number) + ", " + std::to_string(document) +
         ", " + kind + ", " + amount + ")";
}

// Movements of a document: none, any, charges that are paid to the cent, or sums that differ in their last bits alone.
std::vector<std::pair<std::string, std::string>> movementsOf(Chance& chance) {
  std::vector<std::pair<std::string, std::string>> movements;
  switch (chance.below(5)) {
    case 0:
      break;
    case 1:
      movements = {{"'C'", "0.1"}, {"'C'", "0.2"}, {"'A'", "0.3"}};
      break;
    case 2:
      for (unsigned i = chance.below(4) + 1; i > 0; --i) {
        const std::string amount = chance.oneOf(kAmounts);
        movements.emplace_back("'C'", amount);
        movements.emplace_back("'A'", amount);
      }
      break;
    default:
      for (unsigned i = chance.below(9) + 1; i > 0; --i) {
        movements.emplace_back(chance.oneOf(kKinds), chance.oneOf(kAmounts));
      }
  }
  return movements;
}

template <typename Update>
void updateEach(data::Connection& connection, const Side& side, Update update) {
  std::vector<Variant> numbers;
  const auto rows =
      connection.Execute("SELECT " + side.documents + " FROM " + side.documents + " ORDER BY " + side.documents);
  for (; !rows->Eof(); rows->MoveNext()) numbers.push_back(rows->Fields(0).Value());
  for (const Variant& number : numbers) {
    const std::int32_t error = errorNumber([&] { update(number); });
    EXPECT_TRUE(error == 0 || error == error_number::kInvalidUseOfNull) << error;
  }
}

std::string textOf(const Variant& value) { return value.isNull() ? "(null)" : value.toText(); }

}  // namespace

Books::Books(const Engine& engine, unsigned seed, const BookColumns& columns)
    : database_(engine.create()), connection_(database_->connect()), beginWriting_(engine.forms.beginWriting) {
  create(columns);
  fill(seed);
}

void Books::create(const BookColumns& columns) const {
  for (const Side& side : {kCustomers, kSuppliers}) {
    run("CREATE TABLE " + side.owners + " (" + side.owner + " VARCHAR(20) NOT NULL PRIMARY KEY, saldo " +
        columns.amount + ")");
    run("CREATE TABLE " + side.documents + " (" + side.documents + " INTEGER NOT NULL PRIMARY KEY, " + side.owner +
        " VARCHAR(20), saldo " + columns.amount + " CHECK (saldo < 9000000), tip_cam " + columns.amount +
        ", estado CHAR(2))");
    run("CREATE TABLE " + side.movements + " (id INTEGER NOT NULL PRIMARY KEY, " + side.documents +
        " INTEGER, cargo_ab CHAR(1), importe " + columns.amount + ")");
    if (!columns.hasIndexes) continue;
    run("CREATE INDEX ix_" + side.movements + " ON " + side.movements + " (" + side.documents + ")");
    run("CREATE INDEX ix_" + side.documents + " ON " + side.documents + " (" + side.owner + ")");
  }
}

void Books::fill(unsigned seed) const {
  Chance chance(seed);
  run(beginWriting_);
  for (const Side& side : {kCustomers, kSuppliers}) {
    for (const char* owner : {"'A1'", "'B2'", "'ÑU-1'", "'O Higgins'", "'SINTC'", "'c3'", "'SIN DOCUMENTOS'"}) {
      run("INSERT INTO " + side.owners + " VALUES (" + owner + ", " + chance.oneOf(kBalances) + ")");
    }
    std::vector<std::string> movements;
    for (int document = 1; document <= kDocuments; ++document) {
      const std::string owner = chance.oneOf(kOwners);
      const std::string rate = owner == "'SINTC'" ? "NULL" : chance.oneOf(kRates);
      const int number = document * 3;
      run("INSERT INTO " + side.documents + " VALUES (" + std::to_string(number) + ", " + owner + ", " +
          chance.oneOf(kBalances) + ", " + rate + ", " + chance.oneOf(kStates) + ")");
      for (const auto& [kind, amount] : movementsOf(chance)) {
        movements.push_back(newMovement(side, static_cast<int>(movements.size()), number, kind, amount));
      }
    }
    // Those of one document do not stand together, as in a shop that takes payments of many.
    for (std::size_t i = movements.size(); i > 1; --i) {
      std::swap(movements[i - 1], movements[chance.below(static_cast<unsigned>(i))]);
    }
    for (const std::string& movement : movements) run(movement);
  }
  run("COMMIT");
}

std::string Books::scalar(const std::string& sql) const { return textOf(connection_->Execute(sql)->Fields(0).Value()); }

std::vector<std::string> Books::dump() const {
  std::vector<std::string> lines;
  for (const Side& side : {kCustomers, kSuppliers}) {
    for (const std::string& sql :
         {"SELECT " + side.documents + ", saldo, estado FROM " + side.documents + " ORDER BY " + side.documents,
          "SELECT " + side.owner + ", saldo, '' FROM " + side.owners + " ORDER BY " + side.owner}) {
      const auto rows = connection_->Execute(sql);
      for (; !rows->Eof(); rows->MoveNext()) {
        lines.push_back(textOf(rows->Fields(0).Value()) + "|" + textOf(rows->Fields(1).Value()) + "|" +
                        textOf(rows->Fields(2).Value()));
      }
    }
  }
  return lines;
}

void Books::updateOneByOne(PayablesMethod updatePayable) const {
  const auto ambiente = std::make_shared<host::SimpleAmbiente>(connection_);
  host::QueryPtr query;
  run(beginWriting_);
  updateEach(*connection_, kCustomers, [&](const Variant& number) { ledger::ActualizaSaldo(number, ambiente, query); });
  updateEach(*connection_, kSuppliers, [&](const Variant& number) { updatePayable(number, ambiente); });
  run("COMMIT");
}

}  // namespace qvn::test
