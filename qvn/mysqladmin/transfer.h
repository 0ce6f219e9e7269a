// How a backup or a restore tells how far it has come.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace qvn::mysqladmin {

struct TransferProgress {
  const std::string& table;  ///< being written or last begun; "" before the first
  std::int64_t rows = 0;     ///< written so far; 0 in a restore, which does not count them
  std::int64_t bytes = 0;    ///< of the dump's text, written or read
  // Share of the work: rows by the server's estimate in a backup, bytes of the file in a restore. `done` may pass the
  // estimate; `total` is 0 when there is none.
  std::int64_t done = 0;
  std::int64_t total = 0;
};

/// Called every so many rows or statements; false ends the work, which then counts as interrupted.
using TransferObserver = std::function<bool(const TransferProgress& at)>;

/// What a host may ask of a backup or a restore beyond its contract.
struct TransferOptions {
  TransferObserver observe = nullptr;
  bool hasFormats = false;  ///< a file whose name ends in ".gz" or ".zst" is compressed; else every file is plain
};

}  // namespace qvn::mysqladmin
