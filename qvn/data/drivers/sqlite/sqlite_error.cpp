#include "qvn/data/drivers/sqlite/sqlite_error.h"

#include <algorithm>
#include <array>

#include "qvn/base/utf8.h"

namespace qvn::data::sqlite {
namespace {

struct CodeRule {
  int code;  // primary result code
  std::string_view sqlState;
  std::int32_t number;
  std::string_view advice;
};

// Codes of the engine that are not just a refused statement. Source: the engine's list of result codes; SQL states from
// ISO/IEC 9075-2 and ODBC.
constexpr auto kCodeRules = std::to_array<CodeRule>({
    {SQLITE_PERM, "42000", provider_number::kUnspecified, "; revise los permisos del archivo"},
    {SQLITE_BUSY, "HYT00", provider_number::kTimeout, "; otra estación tiene ocupada la base, intente de nuevo"},
    {SQLITE_LOCKED, "HYT00", provider_number::kTimeout, "; otra consulta tiene ocupada la tabla, intente de nuevo"},
    {SQLITE_NOMEM, "HY001", provider_number::kUnspecified, ""},
    {SQLITE_READONLY, "25006", provider_number::kStatementRefused, "; la base es de sólo lectura"},
    {SQLITE_INTERRUPT, "HYT00", provider_number::kTimeout, "; se agotó el tiempo de espera de la sentencia"},
    {SQLITE_IOERR, "08S01", provider_number::kUnspecified, "; revise el disco"},
    {SQLITE_CORRUPT, "08S01", provider_number::kUnspecified, "; el archivo está dañado, restaure un respaldo"},
    {SQLITE_FULL, "53100", provider_number::kUnspecified, "; no queda espacio en el disco"},
    {SQLITE_CANTOPEN, "08001", provider_number::kUnspecified, "; revise la ruta y los permisos"},
    {SQLITE_CONSTRAINT, "23000", provider_number::kIntegrityViolation, ""},
    {SQLITE_NOTADB, "08001", provider_number::kUnspecified, "; el archivo no es una base de datos"},
});
static_assert(std::ranges::is_sorted(kCodeRules, std::less{}, &CodeRule::code));

struct TextRule {
  std::string_view beginning;
  std::string_view sqlState;
  std::int32_t number;
};

// The engine has one code for every statement that it cannot prepare; its words tell them apart.
constexpr auto kTextRules = std::to_array<TextRule>({
    {"no such table", "42S02", provider_number::kNoSuchTable},
    {"no such column", "42S22", provider_number::kStatementRefused},
});

ErrorItem classify(int code, std::string_view words) {
  ErrorItem item;
  item.nativeError = code;
  item.source = "SQLite";
  const int primaryCode = code & 0xFF;
  item.isLockConflict = primaryCode == SQLITE_BUSY || primaryCode == SQLITE_LOCKED;
  const auto* byCode = std::ranges::find(kCodeRules, primaryCode, &CodeRule::code);
  if (byCode != kCodeRules.end()) {
    item.number = byCode->number;
    item.sqlState = byCode->sqlState;
    item.description = byCode->advice;
    return item;
  }
  const auto* byText =
      std::ranges::find_if(kTextRules, [&](const TextRule& rule) { return words.starts_with(rule.beginning); });
  item.number = byText == kTextRules.end() ? provider_number::kStatementRefused : byText->number;
  item.sqlState = byText == kTextRules.end() ? "42000" : byText->sqlState;
  return item;
}

ProviderError build(int code, std::string_view words, const std::string& lead) {
  ErrorItem item = classify(code, words);
  item.description = lead + utf8::sanitize(words) + item.description;
  return ProviderError({std::move(item)});
}

}  // namespace

ProviderError lastError(sqlite3* database, std::string_view doing) {
  return build(sqlite3_extended_errcode(database), sqlite3_errmsg(database), std::string(doing) + ": ");
}

ProviderError errorWithText(int code, const std::string& text) { return build(code, text, {}); }

}  // namespace qvn::data::sqlite
