#include "qvn/reports/paper.h"

#include <algorithm>
#include <array>

#include "qvn/base/letter_case.h"

namespace qvn::reports {
namespace {

struct PaperRow {
  Paper paper;
  std::string_view name;
  PaperSize size;
};

// Letter is ANSI/ASME Y14.1 size A, 8.5 by 11 inches; A4 is ISO 216, 210 by 297 millimetres.
constexpr auto kPapers = std::to_array<PaperRow>({
    {Paper::Letter, "carta", {612, 792, 66}},
    {Paper::A4, "a4", {595.28, 841.89, 70}},
    {Paper::LetterLandscape, "carta horizontal", {792, 612, 51}},
    {Paper::A4Landscape, "a4 horizontal", {841.89, 595.28, 49}},
});

const PaperRow& rowOf(Paper paper) { return *std::ranges::find(kPapers, paper, &PaperRow::paper); }

}  // namespace

PaperSize sizeOf(Paper paper) { return rowOf(paper).size; }

std::string_view nameOf(Paper paper) { return rowOf(paper).name; }

std::optional<Paper> paperNamed(std::string_view name) {
  const auto* const found =
      std::ranges::find_if(kPapers, [name](const PaperRow& row) { return equalIgnoringCase(row.name, name); });
  if (found == kPapers.end()) return std::nullopt;
  return found->paper;
}

}  // namespace qvn::reports
