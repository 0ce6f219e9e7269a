#include "qvn/data/drivers/sqlite/declared_type.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

#include "qvn/base/utf8.h"

namespace qvn::data::sqlite {
namespace {

struct TypeRule {
  std::string_view word;
  FieldType type;
};

// The first word of a declaration. Source: the type names of the engines whose schemas hosts bring along.
constexpr auto kTypeRules = std::to_array<TypeRule>({
    {"BIGINT", FieldType::BigInt},
    {"BINARY", FieldType::VarBinary},
    {"BIT", FieldType::Boolean},
    {"BLOB", FieldType::LongVarBinary},
    {"BOOL", FieldType::Boolean},
    {"BOOLEAN", FieldType::Boolean},
    {"CHAR", FieldType::WChar},
    {"CHARACTER", FieldType::WChar},
    {"CLOB", FieldType::LongVarWChar},
    {"CURRENCY", FieldType::Currency},
    {"DATE", FieldType::Date},
    {"DATETIME", FieldType::DbTimeStamp},
    {"DEC", FieldType::Numeric},
    {"DECIMAL", FieldType::Numeric},
    {"DOUBLE", FieldType::Double},
    {"FLOAT", FieldType::Double},
    {"INT", FieldType::Integer},
    {"INT2", FieldType::SmallInt},
    {"INT8", FieldType::BigInt},
    {"INTEGER", FieldType::Integer},
    {"LONGTEXT", FieldType::LongVarWChar},
    {"MEDIUMINT", FieldType::Integer},
    {"MONEY", FieldType::Currency},
    {"NCHAR", FieldType::WChar},
    {"NUMERIC", FieldType::Numeric},
    {"NVARCHAR", FieldType::VarWChar},
    {"REAL", FieldType::Double},
    {"SMALLINT", FieldType::SmallInt},
    {"TEXT", FieldType::LongVarWChar},
    {"TIME", FieldType::DbTime},
    {"TIMESTAMP", FieldType::DbTimeStamp},
    {"TINYINT", FieldType::TinyInt},
    {"VARBINARY", FieldType::VarBinary},
    {"VARCHAR", FieldType::VarWChar},
});
static_assert(std::ranges::is_sorted(kTypeRules, std::less{}, &TypeRule::word));

char capital(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool isLetter(char c) { return (capital(c) >= 'A' && capital(c) <= 'Z') || (c >= '0' && c <= '9'); }

FieldType typeOfWord(std::string_view word) {
  std::array<char, 9> upper{};  // the longest word of the table
  if (word.size() > upper.size()) return FieldType::VarWChar;
  std::ranges::transform(word, upper.begin(), capital);
  const std::string_view key(upper.data(), word.size());
  const auto* rule = std::ranges::lower_bound(kTypeRules, key, std::less{}, &TypeRule::word);
  return rule != kTypeRules.end() && rule->word == key ? rule->type : FieldType::VarWChar;
}
static_assert(std::ranges::max(kTypeRules, std::less{}, [](const TypeRule& rule) {
                return rule.word.size();
              }).word.size() == 9);

// Reads the number at the front of `text` and drops it with the comma behind it; 0 when there is none.
int takeNumber(std::string_view& text) {
  text = utf8::trimBlanks(text);
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{}) return 0;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  text = utf8::trimBlanks(text);
  if (text.starts_with(',')) text.remove_prefix(1);
  return number;
}

}  // namespace

void applyDeclaredType(std::string_view declaration, Column& column) {
  const auto* wordEnd = std::ranges::find_if_not(declaration, isLetter);
  column.type = typeOfWord(declaration.substr(0, static_cast<std::size_t>(wordEnd - declaration.begin())));
  const std::size_t open = declaration.find('(');
  if (open == std::string_view::npos) return;
  std::string_view rest = declaration.substr(open + 1);
  const int size = takeNumber(rest);
  if (column.type == FieldType::Numeric) {
    column.precision = size;
    column.scale = takeNumber(rest);
  } else {
    column.definedSize = size;
  }
}

}  // namespace qvn::data::sqlite
