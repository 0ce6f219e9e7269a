#include <sql.h>
#include <sqlext.h>

#include <array>

#include "bench/data/raw_reader.h"

namespace qvn::bench {
namespace {

constexpr SQLULEN kBlock = 100;

// A bound column of a block of rows.
template <typename Value>
struct Block {
  std::array<Value, kBlock> values{};
  std::array<SQLLEN, kBlock> sizes{};

  void bind(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type) {
    SQLBindCol(statement, column, type, values.data(), sizeof(Value), sizes.data());
  }
};

class RawOdbc final : public RawReader {
 public:
  explicit RawOdbc(std::string connectionString) {
    SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &environment_);
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
    auto* text = reinterpret_cast<SQLCHAR*>(connectionString.data());
    const SQLRETURN opened =
        SQLDriverConnect(connection_, nullptr, text, SQL_NTS, nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    require(SQL_SUCCEEDED(opened), "the ODBC driver refused");
  }
  ~RawOdbc() override {
    SQLDisconnect(connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
  }

  Checksum read() override {
    SQLHSTMT statement = nullptr;
    SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
    SQLULEN rows = 0;
    SQLSetStmtAttr(statement, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(kBlock), 0);
    SQLSetStmtAttr(statement, SQL_ATTR_ROWS_FETCHED_PTR, &rows, 0);
    std::string sql = kSelect;
    SQLExecDirect(statement, reinterpret_cast<SQLCHAR*>(sql.data()), SQL_NTS);
    id_.bind(statement, 1, SQL_C_SLONG);
    code_.bind(statement, 2, SQL_C_CHAR);
    name_.bind(statement, 3, SQL_C_CHAR);
    price_.bind(statement, 4, SQL_C_DOUBLE);
    stock_.bind(statement, 5, SQL_C_SLONG);
    Checksum sum;
    while (SQL_SUCCEEDED(SQLFetch(statement))) addBlock(rows, sum);
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
    return sum;
  }

 private:
  void addBlock(SQLULEN rows, Checksum& sum) {
    for (std::size_t i = 0; i < rows; ++i) {
      sum.whole += id_.values[i] + stock_.values[i];
      sum.amount += price_.values[i];
      codeText_.assign(code_.values[i].data(), static_cast<std::size_t>(code_.sizes[i]));
      nameText_.assign(name_.values[i].data(), static_cast<std::size_t>(name_.sizes[i]));
      sum.characters += codeText_.size() + nameText_.size();
    }
  }

  SQLHENV environment_ = nullptr;
  SQLHDBC connection_ = nullptr;
  Block<SQLINTEGER> id_;
  Block<std::array<char, 84>> code_;
  Block<std::array<char, 244>> name_;
  Block<double> price_;
  Block<SQLINTEGER> stock_;
  std::string codeText_;
  std::string nameText_;
};

}  // namespace

std::unique_ptr<RawReader> rawOdbc(const std::string& connectionString) {
  return std::make_unique<RawOdbc>(connectionString);
}

}  // namespace qvn::bench
