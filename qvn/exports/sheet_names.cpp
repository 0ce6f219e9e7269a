#include "qvn/exports/sheet_names.h"

#include <algorithm>

#include "qvn/base/letter_case.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"

namespace qvn::exports {
namespace {

constexpr std::size_t kMostUnits = 31;
// Spreadsheet programs keep it for the history of changes.
constexpr std::string_view kReserved = "History";

std::size_t unitsOf(std::string_view text) {
  std::size_t units = 0;
  for (std::size_t at = 0; at < text.size();) {
    const utf8::Decoded next = utf8::decode(text, at);
    units += next.codePoint > 0xFFFF ? 2 : 1;
    at += next.length;
  }
  return units;
}

bool isForbidden(char c) {
  return static_cast<unsigned char>(c) < 0x20 || std::string_view("[]:*?/\\").find(c) != std::string_view::npos;
}

// What is wrong with the name; "" when it can be had.
std::string_view faultOf(std::string_view name) {
  if (!utf8::isValid(name)) return "no está en UTF-8";
  if (unitsOf(name) > kMostUnits) return "tiene más de 31 caracteres";
  if (std::ranges::any_of(name, isForbidden)) return "lleva uno de los caracteres [ ] : * ? / \\ o uno de control";
  if (name.starts_with('\'') || name.ends_with('\'')) return "empieza o termina con un apóstrofo";
  if (equalIgnoringCase(name, kReserved)) return "está reservado";
  return "";
}

[[noreturn]] void refuse(std::string_view name, std::string_view fault) {
  std::string text = "El nombre de hoja «";
  text.append(utf8::sanitize(name)).append("» ").append(fault);
  throw RuntimeError(error_number::kInvalidCall, text);
}

// As much of the name as there is room for before a suffix of ASCII.
std::string shortened(std::string_view name, std::size_t suffixSize) {
  std::size_t count = utf8::length(name);
  while (unitsOf(utf8::left(name, count)) + suffixSize > kMostUnits) --count;
  return std::string(utf8::left(name, count));
}

}  // namespace

bool SheetNames::isTaken(std::string_view name) const {
  return std::ranges::any_of(taken_, [name](const std::string& other) { return equalIgnoringCase(name, other); });
}

const std::string& SheetNames::keep(std::string name) {
  taken_.push_back(std::move(name));
  return taken_.back();
}

const std::string& SheetNames::take(std::string_view name) {
  if (name.empty()) {
    for (std::size_t number = taken_.size() + 1;; ++number) {
      std::string usual = "Hoja" + std::to_string(number);
      if (!isTaken(usual)) return keep(std::move(usual));
    }
  }
  if (const std::string_view fault = faultOf(name); !fault.empty()) refuse(name, fault);
  if (isTaken(name)) refuse(name, "ya es el de otra hoja");
  return keep(std::string(name));
}

const std::string& SheetNames::takeNext(std::string_view name) {
  for (int number = 2;; ++number) {
    const std::string suffix = " (" + std::to_string(number) + ")";
    std::string next = shortened(name, suffix.size()) + suffix;
    if (!isTaken(next)) return keep(std::move(next));
  }
}

std::string quotedSheetName(std::string_view name) {
  std::string quoted = "'";
  for (const char c : name) {
    quoted.append(c == '\'' ? 2 : 1, c);
  }
  return quoted.append("'");
}

std::string columnLetters(std::size_t column) {
  std::string letters;
  for (std::size_t left = column + 1; left > 0; left = (left - 1) / 26) {
    letters.insert(letters.begin(), static_cast<char>('A' + (left - 1) % 26));
  }
  return letters;
}

}  // namespace qvn::exports
