#include <sqlite3.h>

#include "bench/data/raw_reader.h"

namespace qvn::bench {
namespace {

class RawSqlite final : public RawReader {
 public:
  explicit RawSqlite(const std::string& file) {
    // As the library does: without locks for several threads.
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
    require(sqlite3_open_v2(file.c_str(), &database_, flags, nullptr) == SQLITE_OK, "cannot open the file");
  }
  ~RawSqlite() override { sqlite3_close(database_); }

  Checksum read() override {
    Checksum sum;
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database_, kSelect, -1, &statement, nullptr);
    std::string code;
    std::string name;
    const auto take = [statement](int column, std::string& text) {
      const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
      text.assign(bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
    };
    while (sqlite3_step(statement) == SQLITE_ROW) {
      sum.whole += sqlite3_column_int(statement, 0) + sqlite3_column_int(statement, 4);
      sum.amount += sqlite3_column_double(statement, 3);
      take(1, code);
      take(2, name);
      sum.characters += code.size() + name.size();
    }
    sqlite3_finalize(statement);
    return sum;
  }

 private:
  sqlite3* database_ = nullptr;
};

}  // namespace

std::unique_ptr<RawReader> rawSqlite(const std::string& file) { return std::make_unique<RawSqlite>(file); }

}  // namespace qvn::bench
