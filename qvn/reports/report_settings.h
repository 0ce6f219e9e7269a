// What a report shows of a recordset.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace qvn::reports {

inline constexpr std::size_t kWidestColumn = 500;

enum class Alignment {
  Automatic,  ///< numbers to the right, everything else to the left
  Left,
  Right,
  Center,
};

// Members have initializers so that a host names only those that it sets.

struct ColumnSettings {
  std::string field;
  std::string heading = {};  ///< the field's name when empty
  std::size_t width = 0;     ///< characters, at most kWidestColumn; 0: as the field and the heading need
  Alignment alignment = Alignment::Automatic;
  std::string pattern = {};  ///< of formatValue(); "" shows the value's general text
  bool isSummed = false;
  friend bool operator==(const ColumnSettings&, const ColumnSettings&) = default;
};

/// A change of the field's value ends the group, and those inside it.
struct GroupSettings {
  std::string field;
  std::string heading = {};  ///< the field's name when empty
  bool hasSubtotals = true;
  friend bool operator==(const GroupSettings&, const GroupSettings&) = default;
};

struct ReportSettings {
  std::string title = {};
  std::string subtitle = {};
  std::vector<ColumnSettings> columns = {};  ///< without any, each field that makes no group is one
  std::vector<GroupSettings> groups = {};    ///< from the outermost
  bool hasTotals = true;                     ///< of all rows, behind the last
};

}  // namespace qvn::reports
