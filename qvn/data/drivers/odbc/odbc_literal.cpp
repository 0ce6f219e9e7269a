#include "qvn/data/drivers/odbc/odbc_literal.h"

#include "qvn/data/iso_date.h"
#include "qvn/data/sql_text.h"

namespace qvn::data::odbc {
namespace {

std::string sqlServerBytes(std::string_view bytes) {
  const std::string literal = hexLiteral(bytes);  // X'0AFF'
  return "0x" + literal.substr(2, literal.size() - 3);
}

// The engine reads a backslash as the beginning of an escape.
std::string escapedText(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size() + 2);
  for (const char c : text) {
    if (c == '\\') escaped.push_back('\\');
    if (c == '\0') {
      escaped.append("\\0");
    } else {
      escaped.push_back(c);
    }
  }
  return doubledQuotes(escaped, '\'');
}

std::string textLiteral(EngineKind engine, const std::string& text) {
  switch (engine) {
    case EngineKind::SqlServer:
      return "N" + doubledQuotes(text, '\'');
    case EngineKind::MySql:
      return escapedText(text);
    case EngineKind::Sqlite:
      if (text.find('\0') != std::string::npos) return "CAST(" + hexLiteral(text) + " AS TEXT)";
      break;
    default:
      break;
  }
  return doubledQuotes(text, '\'');
}

std::string dateLiteral(EngineKind engine, Date date, FieldType type) {
  // An engine that stores any text in any column keeps a time in one declared as a date.
  if (engine == EngineKind::Sqlite && type == FieldType::Date && date.hasTime()) type = FieldType::DbTimeStamp;
  std::string text = isoText(date, type, engine == EngineKind::SqlServer ? 3 : 6);
  // A date whose column is not known: without hyphens, since the session's language decides how a DATETIME reads them.
  if (engine == EngineKind::SqlServer && type == FieldType::Date) std::erase(text, '-');
  // The form with "T" means the same whatever the session's language.
  if (const std::size_t blank = text.find(' '); engine == EngineKind::SqlServer && blank != std::string::npos) {
    text[blank] = 'T';
  }
  return "'" + text + "'";
}

}  // namespace

std::string literal(EngineKind engine, const Variant& value, FieldType type) {
  if (const auto* date = value.getIf<Date>()) return dateLiteral(engine, *date, type);
  if (const auto* text = value.getIf<std::string>()) {
    if (!isBinary(type)) return textLiteral(engine, *text);
    return engine == EngineKind::SqlServer ? sqlServerBytes(*text) : hexLiteral(*text);
  }
  return plainLiteral(value);
}

}  // namespace qvn::data::odbc
