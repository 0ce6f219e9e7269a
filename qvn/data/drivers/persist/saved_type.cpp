#include "qvn/data/drivers/persist/saved_type.h"

#include <algorithm>
#include <array>

#include "qvn/data/field_kind.h"

namespace qvn::data::persist {
namespace {

struct TypeRule {
  FieldType type;
  SavedType saved;
};

// Source: the data-access platform's documentation of its XML form. For each name the row that a file means without
// further hints comes first.
constexpr auto kTypeRules = std::to_array<TypeRule>({
    {FieldType::SmallInt, {"i2", "", Length::Fixed}},
    {FieldType::Integer, {"int", "", Length::Fixed}},
    {FieldType::Single, {"r4", "", Length::Fixed}},
    {FieldType::Double, {"float", "", Length::Fixed}},
    {FieldType::Currency, {"number", "currency", Length::Fixed}},
    {FieldType::DbTimeStamp, {"dateTime", "timestamp", Length::Fixed}},
    {FieldType::Date, {"dateTime", "variantdate", Length::Fixed}},
    {FieldType::Boolean, {"boolean", "", Length::Fixed}},
    {FieldType::TinyInt, {"i1", "", Length::Fixed}},
    {FieldType::UnsignedTinyInt, {"ui1", "", Length::Fixed}},
    {FieldType::UnsignedSmallInt, {"ui2", "", Length::Fixed}},
    {FieldType::UnsignedInt, {"ui4", "", Length::Fixed}},
    {FieldType::BigInt, {"i8", "", Length::Fixed}},
    {FieldType::UnsignedBigInt, {"ui8", "", Length::Fixed}},
    {FieldType::Numeric, {"number", "numeric", Length::Fixed}},
    {FieldType::DbDate, {"date", "", Length::Fixed}},
    {FieldType::DbTime, {"time", "", Length::Fixed}},
    {FieldType::Char, {"string", "str", Length::Fixed}},
    {FieldType::WChar, {"string", "", Length::Fixed}},
    {FieldType::VarChar, {"string", "str", Length::Variable}},
    {FieldType::VarWChar, {"string", "", Length::Variable}},
    {FieldType::LongVarChar, {"string", "str", Length::Long}},
    {FieldType::LongVarWChar, {"string", "", Length::Long}},
    {FieldType::Binary, {"bin.hex", "", Length::Fixed}},
    {FieldType::VarBinary, {"bin.hex", "", Length::Variable}},
    {FieldType::LongVarBinary, {"bin.hex", "", Length::Long}},
});

struct Alias {
  std::string_view dataType;
  std::string_view dbType;  // "" matches any
  SavedType meant;
};

// Names that other writers use.
constexpr auto kAliases = std::to_array<Alias>({
    {"i4", "", {"int", ""}},
    {"r8", "", {"float", ""}},
    {"number", "decimal", {"number", "numeric"}},
    {"number", "", {"number", "numeric"}},
    {"fixed.14.4", "", {"number", "currency"}},
    {"char", "", {"string", ""}},
    {"uuid", "", {"string", ""}},
    {"dateTime", "", {"dateTime", "timestamp"}},
});

bool hasLengths(FieldType type) { return kindOf(type) == FieldKind::Text || kindOf(type) == FieldKind::Bytes; }

const FieldType* find(std::string_view dataType, std::string_view dbType, Length length) {
  const auto* rule = std::ranges::find_if(kTypeRules, [&](const TypeRule& row) {
    return row.saved.dataType == dataType && row.saved.dbType == dbType &&
           (!hasLengths(row.type) || row.saved.length == length);
  });
  return rule == kTypeRules.end() ? nullptr : &rule->type;
}

}  // namespace

const SavedType& savedType(FieldType type) { return std::ranges::find(kTypeRules, type, &TypeRule::type)->saved; }

const FieldType* fieldType(const SavedType& saved) {
  // An amount keeps its kind whatever number type it is written as.
  if (saved.dbType == "currency") return find("number", "currency", Length::Fixed);
  if (const FieldType* exact = find(saved.dataType, saved.dbType, saved.length)) return exact;
  for (const Alias& alias : kAliases) {
    if (alias.dataType == saved.dataType && (alias.dbType.empty() || alias.dbType == saved.dbType)) {
      return find(alias.meant.dataType, alias.meant.dbType, saved.length);
    }
  }
  return find(saved.dataType, "", saved.length);
}

}  // namespace qvn::data::persist
