// Names of the sheets of one workbook.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qvn::exports {

/// Names are at most 31 characters, as UTF-16 counts them, and differ in more than their letters' case.
class SheetNames {
 public:
  /// Takes the name that a host gave, or the first free of "Hoja1", "Hoja2", ... for "". Throws RuntimeError 5 for one
  /// that is too long, holds one of []:*?/\ or a control character, begins or ends with an apostrophe, is reserved or
  /// is taken already.
  const std::string& take(std::string_view name);

  /// Takes the first free of "Ventas (2)", "Ventas (3)", ... for "Ventas", whose end goes where the number needs it.
  const std::string& takeNext(std::string_view name);

 private:
  [[nodiscard]] bool isTaken(std::string_view name) const;
  const std::string& keep(std::string name);

  std::vector<std::string> taken_;
};

/// As formulas write it: "Ventas" is 'Ventas', "O'Hara" is 'O''Hara'.
std::string quotedSheetName(std::string_view name);

/// "A", "B", ..., "Z", "AA" for columns from 0.
std::string columnLetters(std::size_t column);

}  // namespace qvn::exports
