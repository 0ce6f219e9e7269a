#include "qvn/reports/definition_text.h"

#include <algorithm>
#include <iterator>

#include "qvn/base/letter_case.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/reports/line_text.h"

namespace qvn::reports {
namespace {

constexpr std::int32_t kInvalidFileFormat = 321;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kContinuation = "  ";
constexpr std::string_view kBlanks = " \t";

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool isComment(std::string_view line) { return line.starts_with('#') || line.starts_with(';'); }

// Calls `visit` with each line, its line end taken off.
template <typename Visit>
void visitLines(std::string_view text, Visit visit) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    std::string_view line = text.substr(at, end - at);
    if (line.ends_with('\r')) line.remove_suffix(1);
    visit(line);
    at = end + 1;
  }
}

// One line as it is, a query as lines without blank ones.
std::string readableValue(std::string_view key, std::string_view value) {
  if (key != kQueryKey) return std::string(value);
  std::string lines;
  visitLines(value, [&lines](std::string_view line) {
    const std::string_view part = trimmed(line);
    if (part.empty()) return;
    if (!lines.empty()) lines += '\n';
    lines += part;
  });
  return lines;
}

bool hasControls(std::string_view line) {
  std::string untabbed(line);
  std::ranges::replace(untabbed, '\t', ' ');
  return oneLine(untabbed) != untabbed;
}

void requireReadable(std::string_view key, std::string_view value) {
  bool isReadable = key == kQueryKey || (trimmed(value) == value && value.find('\n') == std::string_view::npos);
  visitLines(value, [&isReadable](std::string_view line) { isReadable = isReadable && !hasControls(line); });
  if (isReadable) return;
  throw RuntimeError(error_number::kInvalidCall,
                     "El valor de «" + std::string(key) + "» no se puede guardar en una definición de informe");
}

std::string writtenEntry(std::string_view key, std::string_view value) {
  std::string text = std::string(key) + " = ";
  for (const char c : value) {
    text += c;
    if (c == '\n') text += kContinuation;
  }
  return text;
}

}  // namespace

void refuseLine(std::size_t line, const std::string& words) {
  throw RuntimeError(kInvalidFileFormat, "Línea " + std::to_string(line) + ": " + words);
}

const DefinitionEntry* DefinitionSection::find(std::string_view key) const {
  const auto found = std::ranges::find(entries_, key, &DefinitionEntry::key);
  return found == entries_.end() ? nullptr : &*found;
}

std::string DefinitionSection::value(std::string_view key) const {
  const DefinitionEntry* const entry = find(key);
  return entry == nullptr ? std::string() : entry->value;
}

void DefinitionSection::set(std::string_view key, std::string_view value) {
  requireReadable(key, value);
  const std::string given = readableValue(key, value);
  if (given == this->value(key)) return;
  const auto found = std::ranges::find(entries_, key, &DefinitionEntry::key);
  if (given.empty()) {
    entries_.erase(found);
    return;
  }
  DefinitionEntry entry{.key = std::string(key), .value = given, .text = writtenEntry(key, given)};
  if (found != entries_.end()) {
    entry.line = found->line;
    *found = std::move(entry);
    return;
  }
  // Before the blank lines and comments that lead to the next section.
  const auto last = std::ranges::find_if(entries_.rbegin(), entries_.rend(),
                                         [](const DefinitionEntry& other) { return !other.key.empty(); });
  entries_.insert(last.base(), std::move(entry));
}

DefinitionText DefinitionText::read(std::string_view text) {
  DefinitionText definition;
  definition.hasMark_ = text.starts_with(kByteOrderMark);
  if (definition.hasMark_) text.remove_prefix(kByteOrderMark.size());
  if (text.find("\r\n") != std::string_view::npos) definition.lineEnd_ = "\r\n";
  std::size_t number = 0;
  visitLines(text, [&](std::string_view line) { definition.readLine(line, ++number); });
  return definition;
}

void DefinitionText::readLine(std::string_view line, std::size_t number) {
  if (!utf8::isValid(line)) refuseLine(number, "el texto no es UTF-8");
  const std::string_view content = trimmed(line);
  std::vector<DefinitionEntry>& entries = sections_.back().entries_;
  const bool isIndented = !content.empty() && kBlanks.find(line.front()) != std::string_view::npos;
  if (isIndented && !entries.empty() && entries.back().key == kQueryKey) {
    DefinitionEntry& query = entries.back();
    query.value.append(query.value.empty() ? "" : "\n").append(content);
    query.text.append("\n").append(line);
  } else if (content.empty() || isComment(content)) {
    entries.push_back({.line = number, .text = std::string(line)});
  } else if (content.starts_with('[')) {
    if (!content.ends_with(']')) refuseLine(number, "falta «]» al final de «" + std::string(content) + "»");
    const std::string name = lowerCase(trimmed(content.substr(1, content.size() - 2)));
    DefinitionSection opened{name, number, std::string(line)};
    sections_.push_back(std::move(opened));
  } else {
    readKey(line, number);
  }
}

void DefinitionText::readKey(std::string_view line, std::size_t number) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) {
    refuseLine(number, "«" + std::string(trimmed(line)) + "» no es una sección, una clave con «=» ni un comentario");
  }
  const std::string key = lowerCase(trimmed(line.substr(0, equals)));
  DefinitionSection& section = sections_.back();
  if (section.name().empty()) refuseLine(number, "«" + key + "» está antes de la primera sección");
  if (key.empty()) refuseLine(number, "falta la clave antes de «=»");
  if (const DefinitionEntry* const other = section.find(key)) {
    refuseLine(number, "«" + key + "» ya está en la línea " + std::to_string(other->line));
  }
  section.entries_.push_back(
      {.key = key, .value = std::string(trimmed(line.substr(equals + 1))), .line = number, .text = std::string(line)});
}

std::string DefinitionText::text() const {
  std::string text;
  for (const DefinitionSection& section : sections_) {
    if (!section.name().empty()) text.append(section.text_).append("\n");
    for (const DefinitionEntry& entry : section.entries_) text.append(entry.text).append("\n");
  }
  std::string written(hasMark_ ? kByteOrderMark : "");
  for (const char c : text) written += c == '\n' ? lineEnd_ : std::string(1, c);
  return written;
}

void DefinitionText::removeSection(std::size_t index) {
  std::vector<DefinitionEntry>& entries = sections_[index].entries_;
  const auto lastKey =
      std::ranges::find_if(entries.rbegin(), entries.rend(), [](const auto& entry) { return !entry.key.empty(); });
  std::vector<DefinitionEntry>& before = sections_[index - 1].entries_;
  std::move(lastKey.base(), entries.end(), std::back_inserter(before));
  sections_.erase(sections_.begin() + static_cast<std::ptrdiff_t>(index));
}

DefinitionSection& DefinitionText::addSection(std::string_view name) {
  std::vector<DefinitionEntry>& before = sections_.back().entries_;
  const bool isFirst = sections_.size() == 1 && before.empty();
  if (!isFirst && (before.empty() || !before.back().text.empty())) before.push_back({.text = {}});
  DefinitionSection added{std::string(name), 0, "[" + std::string(name) + "]"};
  sections_.push_back(std::move(added));
  return sections_.back();
}

}  // namespace qvn::reports
