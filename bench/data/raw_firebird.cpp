#include <ibase.h>

#include <array>
#include <cstring>
#include <vector>

#include "bench/data/raw_reader.h"

namespace qvn::bench {
namespace {

// A value of a bound column: a length before the text, or the number.
struct Buffer {
  alignas(8) std::array<char, 512> bytes{};
  ISC_SHORT null = 0;

  [[nodiscard]] std::string_view text() const {
    ISC_SHORT size = 0;
    std::memcpy(&size, bytes.data(), sizeof size);
    return {bytes.data() + sizeof size, static_cast<std::size_t>(size)};
  }
  template <typename Number>
  [[nodiscard]] Number number() const {
    Number number{};
    std::memcpy(&number, bytes.data(), sizeof number);
    return number;
  }
};

class RawFirebird final : public RawReader {
 public:
  explicit RawFirebird(const std::string& file) {
    static constexpr char kParameters[] = {
        isc_dpb_version1, isc_dpb_user_name, 6, 'S', 'Y', 'S', 'D', 'B', 'A', isc_dpb_lc_ctype, 4, 'U', 'T', 'F', '8'};
    isc_attach_database(status_.data(), 0, file.c_str(), &database_, sizeof kParameters, kParameters);
    requireSuccess();
  }
  ~RawFirebird() override { isc_detach_database(status_.data(), &database_); }

  Checksum read() override {
    isc_tr_handle transaction = 0;
    isc_start_transaction(status_.data(), &transaction, 1, &database_, 0, nullptr);
    isc_stmt_handle statement = 0;
    isc_dsql_allocate_statement(status_.data(), &database_, &statement);
    std::vector<char> memory(XSQLDA_LENGTH(5));
    auto* row = reinterpret_cast<XSQLDA*>(memory.data());
    row->version = SQLDA_VERSION1;
    row->sqln = 5;
    isc_dsql_prepare(status_.data(), &transaction, &statement, 0, kSelect, SQL_DIALECT_V6, row);
    std::array<Buffer, 5> buffers;
    for (std::size_t i = 0; i < buffers.size(); ++i) {
      row->sqlvar[i].sqldata = buffers[i].bytes.data();
      row->sqlvar[i].sqlind = &buffers[i].null;
    }
    isc_dsql_execute(status_.data(), &transaction, &statement, SQL_DIALECT_V6, nullptr);
    requireSuccess();
    const Checksum sum = readRows(statement, row, buffers);
    isc_dsql_free_statement(status_.data(), &statement, DSQL_drop);
    isc_commit_transaction(status_.data(), &transaction);
    return sum;
  }

 private:
  Checksum readRows(isc_stmt_handle& statement, XSQLDA* row, const std::array<Buffer, 5>& buffers) {
    Checksum sum;
    std::string code;
    std::string name;
    while (isc_dsql_fetch(status_.data(), &statement, SQL_DIALECT_V6, row) == 0) {
      sum.whole += buffers[0].number<ISC_LONG>() + buffers[4].number<ISC_LONG>();
      sum.amount += buffers[3].number<double>();
      code.assign(buffers[1].text());
      name.assign(buffers[2].text());
      sum.characters += code.size() + name.size();
    }
    return sum;
  }

  void requireSuccess() const { require(status_[0] != 1 || status_[1] == 0, "the engine refused"); }

  std::array<ISC_STATUS, ISC_STATUS_LENGTH> status_{};
  isc_db_handle database_ = 0;
};

}  // namespace

std::unique_ptr<RawReader> rawFirebird(const std::string& file) { return std::make_unique<RawFirebird>(file); }

}  // namespace qvn::bench
