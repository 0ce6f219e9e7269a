#include "qvn/data/drivers/odbc/odbc_error.h"

#include <sqlext.h>

#include <algorithm>
#include <array>
#include <utility>

#include "qvn/base/utf8.h"

namespace qvn::data::odbc {
namespace {

namespace number = provider_number;

struct CodeRule {
  EngineKind engine;
  std::int32_t code;
  std::int32_t platformNumber;
  const char* sqlState;  // null keeps the driver's
  bool isLockConflict = false;
};

// Codes whose SQLSTATE says too little or something else. Sources: the engines' lists of error numbers; 20003 to 20047
// are the TDS library's own.
constexpr auto kCodeRules = std::to_array<CodeRule>({
    {EngineKind::SqlServer, 102, number::kStatementRefused, "42000"},
    {EngineKind::SqlServer, 207, number::kStatementRefused, "42S22"},
    {EngineKind::SqlServer, 208, number::kNoSuchTable, "42S02"},
    {EngineKind::SqlServer, 515, number::kIntegrityViolation, "23000"},
    {EngineKind::SqlServer, 547, number::kIntegrityViolation, "23000"},
    {EngineKind::SqlServer, 1205, number::kStatementRefused, "40001", true},
    {EngineKind::SqlServer, 1222, number::kTimeout, "HYT00", true},
    {EngineKind::SqlServer, 2601, number::kIntegrityViolation, "23000"},
    {EngineKind::SqlServer, 2627, number::kIntegrityViolation, "23000"},
    {EngineKind::SqlServer, 4060, number::kLoginRefused, "28000"},
    {EngineKind::SqlServer, 18456, number::kLoginRefused, "28000"},
    {EngineKind::SqlServer, 20003, number::kTimeout, "HYT00"},
    {EngineKind::SqlServer, 20004, number::kUnspecified, "08S01"},
    {EngineKind::SqlServer, 20006, number::kUnspecified, "08S01"},
    {EngineKind::SqlServer, 20017, number::kUnspecified, "08S01"},
    {EngineKind::SqlServer, 20020, number::kUnspecified, "08S01"},
    {EngineKind::SqlServer, 20009, number::kUnspecified, "08001"},
    {EngineKind::SqlServer, 20047, number::kUnspecified, "08S01"},
    {EngineKind::MySql, 1020, number::kRowChanged, nullptr},
    {EngineKind::MySql, 1045, number::kLoginRefused, "28000"},
    {EngineKind::MySql, 1048, number::kIntegrityViolation, "23000"},
    {EngineKind::MySql, 1054, number::kStatementRefused, "42S22"},
    {EngineKind::MySql, 1062, number::kIntegrityViolation, "23000"},
    {EngineKind::MySql, 1064, number::kStatementRefused, "42000"},
    {EngineKind::MySql, 1146, number::kNoSuchTable, "42S02"},
    {EngineKind::MySql, 1205, number::kTimeout, "HYT00", true},
    {EngineKind::MySql, 1213, number::kStatementRefused, "40001", true},
    {EngineKind::MySql, 1927, number::kUnspecified, "08S01"},
    {EngineKind::MySql, 2002, number::kUnspecified, "08001"},
    {EngineKind::MySql, 2003, number::kUnspecified, "08001"},
    {EngineKind::MySql, 2006, number::kUnspecified, "08S01"},
    {EngineKind::MySql, 2013, number::kUnspecified, "08S01"},
    {EngineKind::MySql, 5014, number::kUnspecified, "08S01"},
    {EngineKind::Sqlite, 5, number::kTimeout, "HYT00", true},
    {EngineKind::Sqlite, 6, number::kTimeout, "HYT00", true},
    {EngineKind::Sqlite, 9, number::kTimeout, "HYT00"},
    {EngineKind::Sqlite, 10, number::kUnspecified, "08S01"},
    {EngineKind::Sqlite, 11, number::kUnspecified, "08S01"},
    {EngineKind::Sqlite, 19, number::kIntegrityViolation, "23000"},
    {EngineKind::Sqlite, 26, number::kUnspecified, "08001"},
});

struct WordRule {
  EngineKind engine;
  std::string_view words;
  std::int32_t platformNumber;
  const char* sqlState;
};

// Engines that have one code for every statement that they cannot prepare; their words tell them apart.
constexpr auto kWordRules = std::to_array<WordRule>({
    {EngineKind::Sqlite, "no such table", number::kNoSuchTable, "42S02"},
    {EngineKind::Sqlite, "no such column", number::kStatementRefused, "42S22"},
    {EngineKind::Sqlite, "constraint failed", number::kIntegrityViolation, "23000"},
    {EngineKind::Sqlite, "database is locked", number::kTimeout, "HYT00"},
    {EngineKind::Sqlite, "malformed", number::kUnspecified, "08S01"},
    {EngineKind::Sqlite, "disk I/O", number::kUnspecified, "08S01"},
    {EngineKind::Sqlite, "interrupted", number::kTimeout, "HYT00"},
});

void translate(EngineKind engine, ErrorItem& item) {
  item.number = numberForSqlState(item.sqlState);
  const auto* byCode = std::ranges::find_if(
      kCodeRules, [&](const CodeRule& rule) { return rule.engine == engine && rule.code == item.nativeError; });
  if (byCode != kCodeRules.end()) {
    item.number = byCode->platformNumber;
    if (byCode->sqlState != nullptr) item.sqlState = byCode->sqlState;
    item.isLockConflict = byCode->isLockConflict;
    return;
  }
  const auto* byWords = std::ranges::find_if(kWordRules, [&](const WordRule& rule) {
    return rule.engine == engine && item.description.find(rule.words) != std::string::npos;
  });
  if (byWords != kWordRules.end()) {
    item.number = byWords->platformNumber;
    item.sqlState = byWords->sqlState;
  } else if (item.sqlState == "HY000" || item.sqlState == "00000") {
    item.sqlState = "42000";
  }
}

}  // namespace

std::string_view withoutSenders(std::string_view words) {
  while (words.starts_with('[')) {
    const std::size_t end = words.find(']');
    if (end == std::string_view::npos) break;
    words.remove_prefix(end + 1);
  }
  return utf8::trimBlanks(words);
}

ProviderError lastError(SQLSMALLINT handleType, SQLHANDLE handle, EngineKind engine, std::string_view doing) {
  std::vector<ErrorItem> items;
  std::array<SQLCHAR, 6> state{};
  std::array<SQLCHAR, 2048> words{};
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  for (SQLSMALLINT record = 1; SQL_SUCCEEDED(
           SQLGetDiagRec(handleType, handle, record, state.data(), &native, words.data(), words.size(), &length));
       ++record) {
    ErrorItem& item = items.emplace_back();
    item.description = utf8::sanitize(withoutSenders(reinterpret_cast<const char*>(words.data())));
    item.nativeError = native;
    item.sqlState = reinterpret_cast<const char*>(state.data());
    item.source = kSource;
    translate(engine, item);
  }
  if (items.empty()) return ownError(number::kUnspecified, "HY000", std::string(doing));
  // A warning that came along is not what failed.
  std::stable_partition(items.begin(), items.end(),
                        [](const ErrorItem& item) { return !item.sqlState.starts_with("01"); });
  items.front().description.insert(0, std::string(doing) + ": ");
  return ProviderError(std::move(items));
}

ProviderError ownError(std::int32_t number, const char* sqlState, const std::string& text) {
  ErrorItem item;
  item.number = number;
  item.sqlState = sqlState;
  item.description = text;
  item.source = kSource;
  return ProviderError({std::move(item)});
}

}  // namespace qvn::data::odbc
