#include "qvn/mysqladmin/schema.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "qvn/mysqladmin/session_settings.h"

namespace qvn::mysqladmin {
namespace {

struct TypeRule {
  std::string_view type;
  ColumnForm form;
  std::string_view before;  // around the column's name
  std::string_view after;
};

// DATA_TYPE of information_schema.COLUMNS; types that are not here are texts. The server's text of a FLOAT has six
// digits only, and a date of zero has no other form than its text. Source: the server's manual on its data types.
constexpr auto kTypeRules = std::to_array<TypeRule>({
    {"bigint", ColumnForm::Number, "", ""},
    {"binary", ColumnForm::Bytes, "", ""},
    {"bit", ColumnForm::Number, "", " + 0"},
    {"blob", ColumnForm::Bytes, "", ""},
    {"date", ColumnForm::Text, "CONCAT(", ")"},
    {"datetime", ColumnForm::Text, "CONCAT(", ")"},
    {"decimal", ColumnForm::Number, "CONCAT(", ")"},
    {"double", ColumnForm::Number, "", ""},
    {"float", ColumnForm::Number, "CAST(", " AS DOUBLE)"},
    {"geometry", ColumnForm::Bytes, "", ""},
    {"geometrycollection", ColumnForm::Bytes, "", ""},
    {"inet4", ColumnForm::Text, "CONCAT(", ")"},
    {"inet6", ColumnForm::Text, "CONCAT(", ")"},
    {"int", ColumnForm::Number, "", ""},
    {"linestring", ColumnForm::Bytes, "", ""},
    {"longblob", ColumnForm::Bytes, "", ""},
    {"mediumblob", ColumnForm::Bytes, "", ""},
    {"mediumint", ColumnForm::Number, "", ""},
    {"multilinestring", ColumnForm::Bytes, "", ""},
    {"multipoint", ColumnForm::Bytes, "", ""},
    {"multipolygon", ColumnForm::Bytes, "", ""},
    {"point", ColumnForm::Bytes, "", ""},
    {"polygon", ColumnForm::Bytes, "", ""},
    {"smallint", ColumnForm::Number, "", ""},
    {"time", ColumnForm::Text, "CONCAT(", ")"},
    {"timestamp", ColumnForm::Text, "CONCAT(", ")"},
    {"tinyblob", ColumnForm::Bytes, "", ""},
    {"tinyint", ColumnForm::Number, "", ""},
    {"uuid", ColumnForm::Text, "CONCAT(", ")"},
    {"varbinary", ColumnForm::Bytes, "", ""},
    {"year", ColumnForm::Number, "", ""},
});
static_assert(std::ranges::is_sorted(kTypeRules, std::less_equal{}, &TypeRule::type));

DatabaseColumn columnOf(std::string name, const std::string& type) {
  static constexpr TypeRule kText{"", ColumnForm::Text, "", ""};
  const auto* const found = std::ranges::lower_bound(kTypeRules, type, {}, &TypeRule::type);
  const TypeRule& rule = found != kTypeRules.end() && found->type == type ? *found : kText;
  std::string expression(rule.before);
  expression.append(quotedName(name)).append(rule.after);
  return {std::move(name), rule.form, std::move(expression)};
}

TableKind kindOf(const std::string& type) {
  if (type == "VIEW") return TableKind::View;
  return type == "SEQUENCE" ? TableKind::Sequence : TableKind::Table;
}

}  // namespace

std::vector<DatabaseTable> readTables(const data::ConnectionPtr& connection) {
  std::vector<DatabaseTable> tables;
  const auto rows = connection->Execute(
      "SELECT TABLE_NAME, TABLE_TYPE, COALESCE(ENGINE, ''), COALESCE(TABLE_ROWS, 0) FROM information_schema.TABLES "
      "WHERE TABLE_SCHEMA = DATABASE() AND TABLE_TYPE <> 'TEMPORARY' ORDER BY TABLE_NAME");
  for (; !rows->Eof(); rows->MoveNext()) {
    tables.push_back({rows->Fields(0).Value().toText(), kindOf(rows->Fields(1).Value().toText()),
                      rows->Fields(2).Value().toText(), rows->Fields(3).Value().toLongLong()});
  }
  return tables;
}

std::vector<DatabaseColumn> readColumns(const std::string& table, const data::ConnectionPtr& connection) {
  std::vector<DatabaseColumn> columns;
  const auto rows = connection->Execute(
      "SELECT COLUMN_NAME, DATA_TYPE FROM information_schema.COLUMNS WHERE TABLE_SCHEMA = DATABASE() AND TABLE_NAME "
      "= " +
      connection->Literal(table) + " AND COALESCE(GENERATION_EXPRESSION, '') = '' ORDER BY ORDINAL_POSITION");
  for (; !rows->Eof(); rows->MoveNext()) {
    columns.push_back(columnOf(rows->Fields(0).Value().toText(), rows->Fields(1).Value().toText()));
  }
  return columns;
}

std::vector<std::string> readNames(const std::string& sql, const data::ConnectionPtr& connection) {
  std::vector<std::string> names;
  const auto rows = connection->Execute(sql);
  for (; !rows->Eof(); rows->MoveNext()) names.push_back(rows->Fields(0).Value().toText());
  return names;
}

}  // namespace qvn::mysqladmin
