#include "qvn/reports/definition_sections.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <optional>
#include <span>
#include <string>

#include "qvn/base/letter_case.h"
#include "qvn/base/runtime_error.h"
#include "qvn/reports/paper.h"

namespace qvn::reports {
namespace {

constexpr std::string_view kTitleKey = "titulo";
constexpr std::string_view kWidthKey = "ancho";
constexpr std::string_view kPatternKey = "formato";
constexpr std::string_view kAlignmentKey = "alinea";
constexpr std::string_view kSumKey = "suma";
constexpr std::string_view kYes = "si";

constexpr auto kReportKeys = std::to_array<std::string_view>({kTitleKey, "subtitulo", kQueryKey, kPaperKey});
constexpr auto kGroupKeys = std::to_array<std::string_view>({kFieldKey, kTitleKey});
constexpr auto kColumnKeys =
    std::to_array<std::string_view>({kFieldKey, kTitleKey, kWidthKey, kPatternKey, kAlignmentKey, kSumKey});

struct SectionRow {
  std::string_view name;
  std::span<const std::string_view> keys;
  std::string_view requiredKey;
};
constexpr auto kSections = std::to_array<SectionRow>({
    {kReportSection, kReportKeys, kQueryKey},
    {kGroupSection, kGroupKeys, kFieldKey},
    {kColumnSection, kColumnKeys, kFieldKey},
});

struct AlignmentRow {
  Alignment alignment;
  std::string_view name;
};
constexpr auto kAlignments = std::to_array<AlignmentRow>({
    {Alignment::Automatic, ""},
    {Alignment::Left, "izquierda"},
    {Alignment::Right, "derecha"},
    {Alignment::Center, "centro"},
});

std::optional<std::size_t> widthIn(std::string_view text) {
  std::size_t width = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, width);
  if (error != std::errc{} || stop != end || width < 1 || width > kWidestColumn) return std::nullopt;
  return width;
}

std::optional<Alignment> alignmentNamed(std::string_view name) {
  const auto* const found =
      std::ranges::find_if(kAlignments, [name](const AlignmentRow& row) { return equalIgnoringCase(row.name, name); });
  if (found == kAlignments.end()) return std::nullopt;
  return found->alignment;
}

bool isYes(std::string_view text) { return equalIgnoringCase(text, kYes) || equalIgnoringCase(text, "sí"); }

// Why a value is not one of its key; "" for one that is.
std::string objection(const DefinitionEntry& entry) {
  if (entry.value.empty()) return "falta el valor de «" + entry.key + "»";
  if (entry.key == kWidthKey && !widthIn(entry.value)) {
    return "«" + entry.value + "» no es un ancho de 1 a " + std::to_string(kWidestColumn);
  }
  if (entry.key == kAlignmentKey && !alignmentNamed(entry.value)) {
    return "«" + entry.value + "» no es izquierda, derecha ni centro";
  }
  if (entry.key == kSumKey && !isYes(entry.value) && !equalIgnoringCase(entry.value, "no")) {
    return "«" + entry.value + "» no es si ni no";
  }
  if (entry.key == kPaperKey && !paperNamed(entry.value)) {
    return "«" + entry.value + "» no es carta, a4, carta horizontal ni a4 horizontal";
  }
  return {};
}

void requireSection(const DefinitionSection& section) {
  const auto* const row = std::ranges::find(kSections, section.name(), &SectionRow::name);
  if (row == kSections.end()) {
    refuseLine(section.line(), "«" + section.name() + "» no es una sección; son informe, grupo y columna");
  }
  for (const DefinitionEntry& entry : section.entries()) {
    if (entry.key.empty()) continue;
    if (std::ranges::find(row->keys, entry.key) == row->keys.end()) {
      refuseLine(entry.line, "«" + entry.key + "» no es una clave de [" + section.name() + "]");
    }
    const std::string words = objection(entry);
    if (!words.empty()) refuseLine(entry.line, words);
  }
  if (section.find(row->requiredKey) == nullptr) {
    refuseLine(section.line(), "a [" + section.name() + "] le falta «" + std::string(row->requiredKey) + "»");
  }
}

}  // namespace

void requireDefinition(const DefinitionText& text) {
  std::map<std::string, std::size_t> lines;  // of what may stand once
  for (const DefinitionSection& section : text.sections()) {
    if (section.name().empty()) continue;
    requireSection(section);
    const DefinitionEntry* const field = section.find(kFieldKey);
    const std::size_t line = field == nullptr ? section.line() : field->line;
    const std::string what = field == nullptr ? "[" + section.name() + "]" : section.name() + " «" + field->value + "»";
    const auto [other, isNew] = lines.emplace(lowerCase(what), line);
    if (!isNew) refuseLine(line, what + " ya está en la línea " + std::to_string(other->second));
  }
  if (lines.find("[" + std::string(kReportSection) + "]") == lines.end()) {
    refuseLine(1, "falta la sección [informe]");
  }
}

GroupSettings groupIn(const DefinitionSection& section) {
  return {.field = section.value(kFieldKey), .heading = section.value(kTitleKey)};
}

ColumnSettings columnIn(const DefinitionSection& section) {
  return {.field = section.value(kFieldKey),
          .heading = section.value(kTitleKey),
          .width = widthIn(section.value(kWidthKey)).value_or(0),
          .alignment = alignmentNamed(section.value(kAlignmentKey)).value_or(Alignment::Automatic),
          .pattern = section.value(kPatternKey),
          .isSummed = isYes(section.value(kSumKey))};
}

void putGroup(DefinitionSection& section, const GroupSettings& group) { section.set(kTitleKey, group.heading); }

void putColumn(DefinitionSection& section, const ColumnSettings& column) {
  if (column.width > kWidestColumn) throw RuntimeError(error_number::kInvalidCall);
  section.set(kTitleKey, column.heading);
  section.set(kWidthKey, column.width == 0 ? std::string() : std::to_string(column.width));
  section.set(kPatternKey, column.pattern);
  section.set(kAlignmentKey, std::ranges::find(kAlignments, column.alignment, &AlignmentRow::alignment)->name);
  if (column.isSummed != isYes(section.value(kSumKey))) section.set(kSumKey, column.isSummed ? kYes : "");
}

}  // namespace qvn::reports
