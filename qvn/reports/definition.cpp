#include "qvn/reports/definition.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

#include "qvn/base/letter_case.h"
#include "qvn/base/path.h"
#include "qvn/base/runtime_error.h"
#include "qvn/host/file_error.h"
#include "qvn/host/require.h"
#include "qvn/reports/definition_sections.h"

namespace qvn::reports {
namespace {

std::string fileText(std::string_view path) {
  errno = 0;
  std::ifstream file(hostPath(path), std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(file), {}};
  if (!file.is_open() || file.bad()) {
    throw host::fileError(std::error_code(errno, std::generic_category()),
                          {.verb = "leer la definición de informe", .path = path});
  }
  return text;
}

// A field's name makes a section known, so that it has to be there.
void putField(DefinitionSection& section, const std::string& field) {
  if (field.empty()) throw RuntimeError(error_number::kInvalidCall, "Falta el campo");
  section.set(kFieldKey, field);
}

}  // namespace

void ReportDefinition::read(std::string_view text) {
  DefinitionText given = DefinitionText::read(text);
  requireDefinition(given);
  text_ = std::move(given);
}

void ReportDefinition::load(std::string_view path) {
  const std::string text = fileText(path);
  try {
    read(text);
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.number(), "«" + std::string(path) + "»: " + error.what());
  }
}

void ReportDefinition::save(std::string_view path, OnExisting onExisting) const {
  requireQuery();
  OutputFile file(path, onExisting);
  file.write(text());
  file.publish();
}

std::string ReportDefinition::reportValue(std::string_view key) const {
  const auto found = std::ranges::find(text_.sections(), kReportSection, &DefinitionSection::name);
  return found == text_.sections().end() ? std::string() : found->value(key);
}

void ReportDefinition::setReportValue(std::string_view key, std::string_view value) {
  DefinitionText changed = text_;
  const auto found = std::ranges::find(changed.sections(), kReportSection, &DefinitionSection::name);
  (found == changed.sections().end() ? changed.addSection(kReportSection) : *found).set(key, value);
  text_ = std::move(changed);
}

Paper ReportDefinition::paper() const { return paperNamed(reportValue(kPaperKey)).value_or(Paper::Letter); }

std::vector<GroupSettings> ReportDefinition::groups() const {
  std::vector<GroupSettings> groups;
  for (const DefinitionSection& section : text_.sections()) {
    if (section.name() == kGroupSection) groups.push_back(groupIn(section));
  }
  return groups;
}

std::vector<ColumnSettings> ReportDefinition::columns() const {
  std::vector<ColumnSettings> columns;
  for (const DefinitionSection& section : text_.sections()) {
    if (section.name() == kColumnSection) columns.push_back(columnIn(section));
  }
  return columns;
}

DefinitionSection* ReportDefinition::find(std::string_view section, std::string_view field) {
  const auto found = std::ranges::find_if(text_.sections(), [&](const DefinitionSection& other) {
    return other.name() == section && equalIgnoringCase(other.value(kFieldKey), field);
  });
  return found == text_.sections().end() ? nullptr : &*found;
}

void ReportDefinition::addGroup(const GroupSettings& group) {
  if (find(kGroupSection, group.field) != nullptr) throw RuntimeError(error_number::kDuplicateKey);
  DefinitionText changed = text_;
  DefinitionSection& section = changed.addSection(kGroupSection);
  putField(section, group.field);
  putGroup(section, group);
  text_ = std::move(changed);
}

void ReportDefinition::setColumn(const ColumnSettings& column) {
  if (DefinitionSection* const section = find(kColumnSection, column.field)) {
    DefinitionSection changed = *section;
    putColumn(changed, column);
    *section = std::move(changed);
    return;
  }
  DefinitionText changed = text_;
  DefinitionSection& section = changed.addSection(kColumnSection);
  putField(section, column.field);
  putColumn(section, column);
  text_ = std::move(changed);
}

void ReportDefinition::remove(std::string_view section, std::string_view field) {
  if (const DefinitionSection* const found = find(section, field)) {
    text_.removeSection(static_cast<std::size_t>(found - text_.sections().data()));
  }
}

void ReportDefinition::removeGroup(std::string_view field) { remove(kGroupSection, field); }
void ReportDefinition::removeColumn(std::string_view field) { remove(kColumnSection, field); }

ReportPtr ReportDefinition::makeReport() const {
  return std::make_shared<Report>(
      ReportSettings{.title = title(), .subtitle = subtitle(), .columns = columns(), .groups = groups()});
}

void ReportDefinition::requireQuery() const {
  if (query().empty()) throw RuntimeError(error_number::kInvalidCall, "La definición del informe no tiene consulta");
}

bool ReportDefinition::render(const data::ConnectionPtr& connection, std::string_view path,
                              const RenderSettings& settings) const {
  requireQuery();
  // The file comes first: a path that cannot be is said before a long query.
  const auto sink = newReportFile(
      path, {.onExisting = settings.onExisting, .paper = paper(), .textPage = {.lines = sizeOf(paper()).textLines}});
  const data::RecordsetPtr rows = host::required(connection)->Execute(query());
  if (rows->State() != data::ObjectState::Open) {
    throw RuntimeError(error_number::kInvalidCall, "La consulta del informe no devuelve registros");
  }
  return makeReport()->run(rows, *sink, settings.observe);
}

}  // namespace qvn::reports
