#include "qvn/text/shell_sort.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "qvn/base/runtime_error.h"

namespace qvn::text {
namespace {

// True when `left`, which stands before `right`, has to stand behind it.
bool isMisplaced(const Variant& left, const Variant& right, SortDirection direction) {
  const auto order = compare(left, right);
  if (!order) {
    return false;
  }
  return direction == SortDirection::SortAscending ? *order > 0 : *order < 0;
}

void insertWithGap(std::vector<Variant>& items, std::size_t gap, SortDirection direction) {
  for (std::size_t i = gap; i < items.size(); ++i) {
    Variant held = std::move(items[i]);
    std::size_t place = i;
    while (place >= gap && isMisplaced(items[place - gap], held, direction)) {
      items[place] = std::move(items[place - gap]);
      place -= gap;
    }
    items[place] = std::move(held);
  }
}

std::size_t firstGapAbove(std::size_t count) {
  std::size_t gap = 1;
  while (gap <= count) {
    gap = 3 * gap + 1;
  }
  return gap;
}

}  // namespace

void ShellSortAny(Variant& vArray, SortDirection SortOrder) {
  const auto* array = vArray.getIf<Array>();
  if (array == nullptr) {
    throw RuntimeError(error_number::kTypeMismatch);
  }
  // A copy, so that a comparison that fails half-way loses no element.
  Array sorted = *array;
  for (std::size_t gap = firstGapAbove(sorted.items.size()) / 3; gap >= 1; gap /= 3) {
    insertWithGap(sorted.items, gap, SortOrder);
  }
  vArray = std::move(sorted);
}

}  // namespace qvn::text
