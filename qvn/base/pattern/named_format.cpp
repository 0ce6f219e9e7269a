#include "qvn/base/pattern/named_format.h"

#include <algorithm>
#include <array>

#include "qvn/base/letter_case.h"

namespace qvn::pattern {
namespace {

constexpr NamedFormat named(std::string_view name, std::string_view pattern) {
  return {name, NamedFormatKind::Pattern, pattern, {}, {}};
}

constexpr NamedFormat choice(std::string_view name, ChoiceWords english, ChoiceWords spanish) {
  return {name, NamedFormatKind::Choice, {}, english, spanish};
}

// clang-format off
constexpr auto kNamedFormats = std::to_array<NamedFormat>({
    {"General Number", NamedFormatKind::GeneralNumber, {}, {}, {}},
    {"Currency", NamedFormatKind::Currency, {}, {}, {}},
    named("Fixed", "0.00"),
    named("Standard", "#,##0.00"),
    named("Percent", "0.00%"),
    named("Scientific", "0.00E+00"),
    choice("Yes/No", {"Yes", "No"}, {"Sí", "No"}),
    choice("True/False", {"True", "False"}, {"Verdadero", "Falso"}),
    choice("On/Off", {"On", "Off"}, {"Activado", "Desactivado"}),
    named("General Date", "c"),
    named("Long Date", "dddddd"),
    named("Medium Date", "dd-mmm-yy"),
    named("Short Date", "ddddd"),
    named("Long Time", "ttttt"),
    named("Medium Time", "hh:nn AM/PM"),
    named("Short Time", "hh:nn"),
});
// clang-format on

}  // namespace

const NamedFormat* findNamedFormat(std::string_view name) noexcept {
  const auto* found = std::ranges::find_if(kNamedFormats, [name](const NamedFormat& format) {
    return format.name.size() == name.size() && equalIgnoringCase(format.name, name);
  });
  return found == kNamedFormats.end() ? nullptr : found;
}

}  // namespace qvn::pattern
