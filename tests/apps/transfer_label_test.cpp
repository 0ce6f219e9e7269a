#include <gtest/gtest.h>

#include "apps/qvn/transfer_bar.h"

namespace qvn::cli {
namespace {

TEST(TransferLabel, TellsRateAndRemainingTime) {
  struct Row {
    std::int64_t bytes;
    std::int64_t done;
    std::int64_t total;
    double seconds;
    std::string label;
  };
  const std::string table = "clients";
  for (const Row& row :
       {Row{25'000'000, 25, 100, 10, "clients, 2.5 MB/s, faltan 0:30"},
        Row{25'000'000, 1, 100, 2, "clients, 12.5 MB/s, faltan 3:18"}, Row{500'000, 10, 100, 0.5, "clients, 1.0 MB/s"},
        Row{1'000'000, 200, 100, 10, "clients, 0.1 MB/s, faltan 0:00"},
        Row{1'000'000, 0, 0, 10, "clients, 0.1 MB/s"}}) {
    EXPECT_EQ(transferLabel({.table = table, .bytes = row.bytes, .done = row.done, .total = row.total},
                            std::chrono::duration<double>(row.seconds)),
              row.label);
  }
}

}  // namespace
}  // namespace qvn::cli
