// Statements kept ready to run again: a station asks for the same counters and settings all day, and compiling such a
// statement takes longer than running it.
#pragma once

#include <sqlite3.h>

#include <array>
#include <memory>
#include <string_view>

#include "qvn/data/drivers/sqlite/handles.h"

namespace qvn::data::sqlite {

class StatementCache {
 public:
  /// The statement of exactly this text, ready for its first step, or none. It is the caller's until it is given back.
  [[nodiscard]] StatementHandle take(std::string_view sql) noexcept;

  /// Ends the statement's reading and keeps it in place of another, or finalizes it: long texts hardly ever come twice,
  /// and what neither reads nor changes rows cannot simply be run again.
  void giveBack(StatementHandle statement) noexcept;

 private:
  struct Slot {
    StatementHandle statement;
    std::string_view sql;  // the statement's own copy of its text
  };
  // A text has one slot where it may stand, so that the many that never come again cost no search.
  Slot& slotOf(std::string_view sql) noexcept;

  std::array<Slot, 64> slots_;
};

using StatementCachePtr = std::shared_ptr<StatementCache>;

/// A statement taken from a cache, which goes back there; also when it was made anew.
class CachedStatement {
 public:
  CachedStatement() = default;
  CachedStatement(StatementHandle statement, StatementCachePtr cache);
  CachedStatement(CachedStatement&& other) noexcept = default;
  CachedStatement& operator=(CachedStatement&& other) noexcept = delete;
  CachedStatement(const CachedStatement&) = delete;
  CachedStatement& operator=(const CachedStatement&) = delete;
  ~CachedStatement();

  [[nodiscard]] sqlite3_stmt* get() const noexcept { return statement_.get(); }

 private:
  StatementHandle statement_;
  StatementCachePtr cache_;
};

}  // namespace qvn::data::sqlite
