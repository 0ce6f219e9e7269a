#include <charconv>

#include "bench/data/raw_reader.h"
#include "bench/support/mysql_peer.h"

namespace qvn::bench {
namespace {

template <typename Number>
Number readNumber(const char* text, unsigned long size) {
  Number number{};
  std::from_chars(text, text + size, number);
  return number;
}

class RawMysql final : public RawReader {
 public:
  RawMysql() : server_(connectMysqlPeer()) { require(server_ != nullptr, "cannot connect to the server"); }
  ~RawMysql() override { mysql_close(server_); }

  Checksum read() override {
    Checksum sum;
    mysql_query(server_, kSelect);
    MYSQL_RES* result = mysql_use_result(server_);
    std::string code;
    std::string name;
    while (MYSQL_ROW row = mysql_fetch_row(result)) {
      const unsigned long* sizes = mysql_fetch_lengths(result);
      sum.whole += readNumber<int>(row[0], sizes[0]) + readNumber<int>(row[4], sizes[4]);
      sum.amount += readNumber<double>(row[3], sizes[3]);
      code.assign(row[1], sizes[1]);
      name.assign(row[2], sizes[2]);
      sum.characters += code.size() + name.size();
    }
    mysql_free_result(result);
    return sum;
  }

 private:
  MYSQL* server_;
};

}  // namespace

std::unique_ptr<RawReader> rawMysql() { return std::make_unique<RawMysql>(); }

}  // namespace qvn::bench
