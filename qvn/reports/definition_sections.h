// The sections of report definitions: which keys they have, and their values.
#pragma once

#include <string_view>

#include "qvn/reports/definition_text.h"
#include "qvn/reports/report_settings.h"

namespace qvn::reports {

inline constexpr std::string_view kReportSection = "informe";
inline constexpr std::string_view kGroupSection = "grupo";
inline constexpr std::string_view kColumnSection = "columna";
inline constexpr std::string_view kFieldKey = "campo";
inline constexpr std::string_view kPaperKey = "papel";

/// Throws RuntimeError 321 with the number of a line that no definition has, or that of a section that lacks a key.
void requireDefinition(const DefinitionText& text);

// Of sections that requireDefinition() has seen.
GroupSettings groupIn(const DefinitionSection& section);
ColumnSettings columnIn(const DefinitionSection& section);

// All but the field. Throw RuntimeError 5 for what a definition cannot hold.
void putGroup(DefinitionSection& section, const GroupSettings& group);
void putColumn(DefinitionSection& section, const ColumnSettings& column);

}  // namespace qvn::reports
