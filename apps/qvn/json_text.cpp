#include "apps/qvn/json_text.h"

#include "qvn/base/utf8.h"

namespace qvn::cli {
namespace {

void appendEscaped(std::string& json, char c) {
  constexpr std::string_view kHexDigits = "0123456789abcdef";
  const auto code = static_cast<unsigned char>(c);
  switch (c) {
    case '"':
      json.append("\\\"");
      break;
    case '\\':
      json.append("\\\\");
      break;
    case '\n':
      json.append("\\n");
      break;
    case '\r':
      json.append("\\r");
      break;
    case '\t':
      json.append("\\t");
      break;
    default:
      if (code < 0x20) {
        json.append("\\u00").append(1, kHexDigits[code >> 4U]).append(1, kHexDigits[code & 0xFU]);
      } else {
        json.push_back(c);
      }
  }
}

}  // namespace

void appendJsonText(std::string& json, std::string_view text) {
  std::string repaired;
  if (!utf8::isValid(text)) {
    repaired = utf8::sanitize(text);
    text = repaired;
  }
  json.push_back('"');
  for (const char c : text) appendEscaped(json, c);
  json.push_back('"');
}

}  // namespace qvn::cli
