#include "qvn/data/drivers/sqlite/statement_cache.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

#include "qvn/base/letter_case.h"

namespace qvn::data::sqlite {
namespace {

constexpr std::size_t kLongestKept = 4096;

// Others, such as PRAGMA, may do their work while they are compiled.
bool canRunAgain(std::string_view sql) {
  static constexpr auto kVerbs = std::to_array<std::string_view>({"SELECT", "INSERT", "UPDATE", "DELETE"});
  return sql.size() <= kLongestKept && std::ranges::any_of(kVerbs, [&](std::string_view verb) {
           return equalIgnoringCase(sql.substr(0, verb.size()), verb);
         });
}

}  // namespace

StatementCache::Slot& StatementCache::slotOf(std::string_view sql) noexcept {
  return slots_.at(std::hash<std::string_view>{}(sql) % slots_.size());
}

StatementHandle StatementCache::take(std::string_view sql) noexcept {
  Slot& slot = slotOf(sql);
  return slot.statement && slot.sql == sql ? std::move(slot.statement) : nullptr;
}

void StatementCache::giveBack(StatementHandle statement) noexcept {
  const char* text = sqlite3_sql(statement.get());
  if (text == nullptr) return;
  const std::string_view sql(text);
  if (!canRunAgain(sql)) return;
  sqlite3_reset(statement.get());
  Slot& slot = slotOf(sql);
  slot.statement = std::move(statement);
  slot.sql = sql;
}

CachedStatement::CachedStatement(StatementHandle statement, StatementCachePtr cache)
    : statement_(std::move(statement)), cache_(std::move(cache)) {}

CachedStatement::~CachedStatement() {
  if (statement_) cache_->giveBack(std::move(statement_));
}

}  // namespace qvn::data::sqlite
