// The text of a report definition: sections of keys, kept as they were written.
//
//   # Ventas del mes
//   [informe]
//   titulo = Ventas
//   consulta = SELECT cliente, importe
//     FROM partvta
//   [columna]
//   campo = importe
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvn::reports {

/// One key with its value, or what is no key: a comment or a blank line.
struct DefinitionEntry {
  std::string key = {};    ///< lower case; "" for what is no key
  std::string value = {};  ///< several lines have "\n" between them
  std::size_t line = 0;    ///< where it stood, from 1; 0 for what was added
  std::string text;        ///< as it stands in the file, without the last line end
};

class DefinitionSection {
 public:
  DefinitionSection(std::string name, std::size_t line, std::string text)
      : name_(std::move(name)), line_(line), text_(std::move(text)) {}

  [[nodiscard]] const std::string& name() const { return name_; }
  [[nodiscard]] std::size_t line() const { return line_; }
  [[nodiscard]] const std::vector<DefinitionEntry>& entries() const { return entries_; }

  [[nodiscard]] const DefinitionEntry* find(std::string_view key) const;
  /// "" without the key.
  [[nodiscard]] std::string value(std::string_view key) const;
  /// An empty value removes the key; a value that is there already leaves the line as it is written. Throws
  /// RuntimeError 5 for one that cannot be read again: blanks around it, line ends and other control characters, or
  /// bytes that are not UTF-8.
  void set(std::string_view key, std::string_view value);

 private:
  friend class DefinitionText;

  std::string name_;  // "" for what stands before the first section
  std::size_t line_;
  std::string text_;
  std::vector<DefinitionEntry> entries_;
};

class DefinitionText {
 public:
  /// Nothing but what stands before the first section.
  DefinitionText() : sections_{DefinitionSection({}, 1, {})} {}

  /// Lines that begin with blanks go on with the value of "consulta" above them; "#" and ";" begin comments. Throws
  /// RuntimeError 321 with the number of a line that is nothing of all this.
  static DefinitionText read(std::string_view text);
  /// What was read, with the changes made since. Lines end as those that were read.
  [[nodiscard]] std::string text() const;

  [[nodiscard]] std::vector<DefinitionSection>& sections() { return sections_; }
  [[nodiscard]] const std::vector<DefinitionSection>& sections() const { return sections_; }
  DefinitionSection& addSection(std::string_view name);
  /// Not the first. What stands behind its last key, such as a comment on the next section, stays.
  void removeSection(std::size_t index);

 private:
  void readLine(std::string_view line, std::size_t number);
  void readKey(std::string_view line, std::size_t number);

  std::vector<DefinitionSection> sections_;
  std::string lineEnd_ = "\n";
  bool hasMark_ = false;  // the mark of UTF-8 that some editors write
};

/// RuntimeError 321: "Línea 7: «anchura» no es ...".
[[noreturn]] void refuseLine(std::size_t line, const std::string& words);

/// The key whose value may have several lines.
inline constexpr std::string_view kQueryKey = "consulta";

}  // namespace qvn::reports
